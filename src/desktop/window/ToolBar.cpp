// The tool bar: lookup, category, and a button for each view.
// SPDX-License-Identifier: MIT
#include <QLabel>
#include <QLineEdit>
#include <QStatusBar>
#include <QStyle>
#include <algorithm>

#include <desktop/texts/Texts.h>
#include <desktop/views/LookupKeys.h>
#include <desktop/views/ViewIcons.h>
#include <desktop/window/ToolBar.h>
#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/resources/StringTable.h>
#include <platform/qt/QtConvert.h>
#include <platform/qt/QtWindowSystem.h>

namespace orvo::desktop {
namespace {

constexpr int kLookupWidth = 220;
constexpr int kCategoryWidth = 170;
constexpr int kGap = 8;
constexpr int kLeastBoxWidth = 72;
// Narrower windows have no words before the boxes.
constexpr int kNarrow = 760;

QString LookUpText() {
    return ToQt(OrvoShareText(kStringLookUp).View());
}

QLabel* MakeLabel(const QString& text, QWidget& labelled) {
    auto* label = new QLabel(text);
    label->setBuddy(&labelled);
    label->setContentsMargins(kGap, 0, kGap, 0);
    return label;
}

}  // namespace

ToolBar::ToolBar(const CommandContext& context, GroupCommands& groups)
    : m_context(context), m_categories(context, groups) {}

ToolBar::~ToolBar() {
    m_context.Frame().LookupBox().SetRefusalListener(nullptr);
}

void ToolBar::Make() {
    m_bar = m_context.Window().addToolBar(Text("Tools"));
    QToolBar& bar = *m_bar;
    bar.setObjectName("tools");
    bar.setMovable(false);
    const int side = bar.style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, &bar);
    bar.setIconSize({side, side});
    bar.setContextMenuPolicy(Qt::PreventContextMenu);
    AddLookup(bar);
    AddCategories(bar);
    auto* space = new QWidget;
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar.addWidget(space);
    AddViews(bar);
}

void ToolBar::AddLookup(QToolBar& bar) {
    ViewFrame& frame = m_context.Frame();
    QWidget* box = QtWindowSystem::WidgetOf(&frame.LookupBox());
    box->setAccessibleName(Text("Look up"));
    if (auto* line = dynamic_cast<QLineEdit*>(box))
        new LookupKeys(*line, [&frame] { frame.OpenByReturn(); });
    frame.LookupBox().SetRefusalListener(
        [this](const CString& typed) { SayRefused(ToQt(typed.View())); });
    m_labels.push_back(bar.addWidget(MakeLabel(LookUpText(), *box)));
    bar.addWidget(box);
}

void ToolBar::FitInto(int width) {
    const bool isNarrow = width < kNarrow;
    for (QAction* label : m_labels) label->setVisible(!isNarrow);
    auto& box = dynamic_cast<QLineEdit&>(*QtWindowSystem::WidgetOf(&m_context.Frame().LookupBox()));
    box.setPlaceholderText(isNarrow ? Text("Look up") : QString());
    int rest = width - 4 * kGap;
    for (QAction* view : m_views.actions()) {
        rest -= m_bar->widgetForAction(view)->sizeHint().width();
    }
    const auto share = [rest, isNarrow](int most) {
        return isNarrow
                   ? std::clamp(rest * most / (kLookupWidth + kCategoryWidth), kLeastBoxWidth, most)
                   : most;
    };
    box.setFixedWidth(share(kLookupWidth));
    m_categories.setFixedWidth(share(kCategoryWidth));
}

void ToolBar::SayRefused(const QString& typed) const {
    if (typed.isEmpty()) {
        m_context.Window().statusBar()->clearMessage();
    } else {
        m_context.Say(Text("No name begins with %1").arg(typed));
    }
}

void ToolBar::AddCategories(QToolBar& bar) {
    m_labels.push_back(bar.addWidget(MakeLabel(Text("Category:"), m_categories)));
    bar.addWidget(&m_categories);
}

void ToolBar::AddViews(QToolBar& bar) {
    constexpr struct {
        ViewKind kind;
        const char* text;
        const char* keys;
    } kViews[] = {{ViewKind::List, Untranslated("List"), "Ctrl+1"},
                  {ViewKind::LargeIcons, Untranslated("Large icons"), "Ctrl+2"},
                  {ViewKind::SmallIcons, Untranslated("Small icons"), "Ctrl+3"},
                  {ViewKind::Cards, Untranslated("Cards"), "Ctrl+4"},
                  {ViewKind::ToDos, Untranslated("To Do"), "Ctrl+5"},
                  {ViewKind::Birthdays, Untranslated("Birthdays"), "Ctrl+6"}};
    for (const auto& view : kViews) {
        if (view.kind == ViewKind::ToDos) bar.addSeparator();
        QAction* action = m_views.addAction(IconOf(view.kind), Text(view.text));
        action->setCheckable(true);
        action->setShortcut(QKeySequence(view.keys));
        QObject::connect(action, &QAction::triggered, action,
                         [this, kind = view.kind] { m_context.ShowView(kind); });
        bar.addAction(action);
    }
}

void ToolBar::CheckView(ViewKind kind) {
    m_views.actions().at(static_cast<int>(kind))->setChecked(true);
}

}  // namespace orvo::desktop
