// All keys of the program as a page.
// SPDX-License-Identifier: MIT
#include <QKeySequence>
#include <QMenu>
#include <QRegularExpression>

#include <desktop/help/KeysPage.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

// The text of a menu without the marks of its keys, which stand behind it in Japanese.
QString Plain(QString text) {
    static const QRegularExpression keyBehind(R"(\(&.\))");
    static const QRegularExpression key("&(.)");
    return text.remove(keyBehind).replace(key, R"(\1)").remove("...");
}

QString Heading(const QString& text) {
    return QString("<h3>%1</h3>").arg(text.toHtmlEscaped());
}

QString Line(const QString& keys, const QString& text) {
    return QString("<tr><td width=\"38%\">%1</td><td>%2</td></tr>")
        .arg(keys.toHtmlEscaped(), text.toHtmlEscaped());
}

QString Table(const QString& lines) {
    return "<table width=\"100%\" cellspacing=\"0\" cellpadding=\"2\">" + lines + "</table>";
}

QString Native(const char* keys) {
    return QKeySequence(keys).toString(QKeySequence::NativeText);
}

QString LinesOf(const QMenu& menu) {
    QString lines;
    for (const QAction* action : menu.actions()) {
        if (action->shortcut().isEmpty() || !action->isVisible()) continue;
        lines += Line(action->shortcut().toString(QKeySequence::NativeText), Plain(action->text()));
    }
    return lines;
}

QString LinesOfViews() {
    return Line(Text("Letters"), Text("Look somebody up")) +
           Line(Native("Up") + ", " + Native("Down"), Text("Go on from there")) +
           Line(Native("Return"), Text("Open what is selected")) +
           Line("-", Text("Complete the selected to-do, or take that back")) +
           Line(Native("Tab"), Text("From the lookup box to the category, the list and back")) +
           Line(Native("Shift+F10") + ", " + Native("Menu"), Text("The menu of what is selected")) +
           Line(Native("F10"), Text("The menus of the window"));
}

QString LinesOfParts() {
    constexpr struct {
        const char* keys;
        const char* text;
    } kLines[] = {{"Ins", Untranslated("Add part")},
                  {"Alt+Up", Untranslated("Move &up")},
                  {"Alt+Down", Untranslated("Move &down")},
                  {"Ctrl+Shift+Right", Untranslated("Make part of the one &above")},
                  {"Ctrl+Shift+Left", Untranslated("Move out by one &level")},
                  {"Del", Untranslated("&Take out")}};
    QString lines;
    for (const auto& line : kLines) lines += Line(Native(line.keys), Plain(Text(line.text)));
    return lines;
}

QString LinesOfForms() {
    return Line(Native("Ctrl+Return"), Text("Save from any field")) +
           Line(Native("Esc"), Text("Leave, and ask first where something would be lost"));
}

}  // namespace

QString HtmlOfKeys(const QMenuBar& bar) {
    QString html;
    for (const QAction* action : bar.actions()) {
        const QString lines = action->menu() ? LinesOf(*action->menu()) : QString();
        if (!lines.isEmpty()) html += Heading(Plain(action->text())) + Table(lines);
    }
    return html + Heading(Text("In the views")) + Table(LinesOfViews()) + Heading(Text("Parts")) +
           Table(LinesOfParts()) + Heading(Text("In forms")) + Table(LinesOfForms());
}

}  // namespace orvo::desktop
