// The user's guide in a window of its own.
// SPDX-License-Identifier: MIT
#include <QAbstractTextDocumentLayout>
#include <QFileInfo>
#include <QImage>
#include <QListWidget>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextTable>
#include <filesystem>

#include <desktop/help/GuideWindow.h>
#include <desktop/texts/Texts.h>
#include <platform/module/InstalledFolder.h>
#include <platform/text/SystemLocale.h>

namespace orvo::desktop {
namespace {

constexpr QSize kSize{860, 640};
constexpr int kMostPictureWidth = 560;  // pixels, of a screen without scaling
constexpr int kCellPadding = 3;
constexpr int kChapter = 2;  // the level of the headings of chapters

QString GuideFile() {
    const std::filesystem::path folder = InstalledFolder("ORVO_GUIDE_DIR", "share/orvo-desktop");
    const QString own = FromUtf8((folder / ("guide." + SystemLocale::Language() + ".md")).string());
    return QFileInfo::exists(own) ? own : FromUtf8((folder / "guide.md").string());
}

// Shows pictures no wider than a page of text.
class GuideBrowser : public QTextBrowser {
public:
    QVariant loadResource(int type, const QUrl& name) override {
        QVariant resource = QTextBrowser::loadResource(type, name);
        if (type != QTextDocument::ImageResource) return resource;
        QImage picture = QImage::fromData(resource.toByteArray());
        const qreal scale = devicePixelRatioF();
        const int most = qRound(kMostPictureWidth * scale);
        if (picture.width() <= kMostPictureWidth) return picture;
        if (picture.width() > most) picture = picture.scaledToWidth(most, Qt::SmoothTransformation);
        picture.setDevicePixelRatio(static_cast<qreal>(picture.width()) / kMostPictureWidth);
        return picture;
    }
};

// No lines where space does.
void ClearTables(const QTextDocument& guide) {
    for (QTextFrame* frame : guide.rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (!table) continue;
        QTextTableFormat format = table->format();
        format.setBorder(0);
        format.setCellSpacing(0);
        format.setCellPadding(kCellPadding);
        table->setFormat(format);
    }
}

void GoTo(QTextBrowser& browser, const QTextBlock& block) {
    const QRectF place = browser.document()->documentLayout()->blockBoundingRect(block);
    browser.verticalScrollBar()->setValue(static_cast<int>(place.top()));
}

// A line for each chapter, which leads there.
QListWidget* NewContents(QTextBrowser& browser) {
    auto* contents = new QListWidget;
    contents->setAccessibleName(Text("Contents"));
    contents->setFrameShape(QFrame::NoFrame);
    const QTextDocument& guide = *browser.document();
    for (QTextBlock block = guide.begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() != kChapter) continue;
        auto* line = new QListWidgetItem(block.text(), contents);
        line->setData(Qt::UserRole, block.blockNumber());
    }
    contents->setFixedWidth(contents->sizeHintForColumn(0) + 2 * contents->sizeHintForRow(0));
    QObject::connect(contents, &QListWidget::currentItemChanged, &browser,
                     [&browser](const QListWidgetItem* line) {
                         if (!line) return;
                         const int number = line->data(Qt::UserRole).toInt();
                         GoTo(browser, browser.document()->findBlockByNumber(number));
                     });
    return contents;
}

}  // namespace

HelpWindow* NewGuideWindow(QWidget& parent) {
    auto* browser = new GuideBrowser;
    auto* window = new HelpWindow(parent, Text("Guide"), *browser);
    window->resize(kSize);
    const QString file = GuideFile();
    if (QFileInfo::exists(file)) {
        browser->setSource(QUrl::fromLocalFile(file), QTextDocument::MarkdownResource);
        ClearTables(*browser->document());
        window->PutBeside(*NewContents(*browser));
    } else {
        browser->setPlainText(Text("The guide isn't installed: there is no file %1.").arg(file));
    }
    return window;
}

}  // namespace orvo::desktop
