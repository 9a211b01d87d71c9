// The commands by which the user prints what the view shows.
// SPDX-License-Identifier: MIT
#include <QMessageBox>
#include <QPageSetupDialog>
#include <QPaintEngine>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QProgressDialog>
#include <utility>

#include <desktop/commands/PrintCommands.h>
#include <desktop/commands/PrintedView.h>
#include <desktop/commands/SaveStart.h>
#include <desktop/printing/PageSetup.h>
#include <desktop/printing/PrintJob.h>
#include <desktop/texts/Texts.h>
#include <desktop/views/EntryTexts.h>
#include <orvoshare/integration/ExportFileDialog.h>
#include <platform/qt/QtConvert.h>
#include <platform/text/SystemText.h>

namespace orvo::desktop {
namespace {

// Nobody leafs through more, and each takes memory as long as the preview is open.
constexpr int kMostPreviewedPages = 500;
// Milliseconds: what is sure to be done sooner shows no progress.
constexpr int kProgressPatience = 1000;

// Shows how many pages are done. It ends when it is cancelled, or when the window behind it closes.
class ProgressBox {
public:
    explicit ProgressBox(QWidget& parent)
        : m_parent(parent),
          m_dialog(Text("The pages are being laid out."), Text("Cancel"), 0, 0, &parent) {
        m_dialog.setWindowTitle(parent.windowTitle());
        m_dialog.setWindowModality(Qt::WindowModal);
        m_dialog.setMinimumDuration(kProgressPatience);
    }

    PrintProgress Progress() {
        return [this](int done, int total) {
            m_dialog.setMaximum(total);
            m_dialog.setValue(done);
            return !m_dialog.wasCanceled() && m_parent.isVisible();
        };
    }

private:
    QWidget& m_parent;
    QProgressDialog m_dialog;
};

bool IsPreview(const QPrinter& printer) {
    return printer.paintEngine()->type() == QPaintEngine::Picture;
}

PrintedPages PagesOf(const QPrinter& printer) {
    PrintedPages pages;
    if (IsPreview(printer)) {
        pages.most = kMostPreviewedPages;
        return pages;
    }
    if (printer.printRange() == QPrinter::PageRange) pages.ranges = printer.pageRanges();
    pages.fromLast = printer.pageOrder() == QPrinter::LastPageFirst;
    return pages;
}

// To the printer, the preview, or the file that the user chose in place of a printer.
PrintResult Send(QWidget& parent, ViewFrame& frame, std::vector<int> rows, QPrinter& printer) {
    const PageTitle title = TitleOf(frame);
    PagedDocument document(ItemsOf(frame, std::move(rows)), title);
    ProgressBox box(parent);
    const QString file = printer.outputFileName();
    if (!file.isEmpty() && !IsPreview(printer)) {
        return SaveAsPdf(document, printer.pageLayout(), file, title.name, PagesOf(printer),
                         box.Progress());
    }
    return Print(document, printer, PagesOf(printer), box.Progress());
}

void TellFailure(QWidget& parent, const PrintResult& result) {
    if (result.end != PrintEnd::Failed) return;
    QMessageBox::warning(&parent, parent.windowTitle(), result.problem);
}

// On paper nothing shows that there is more than what was printed. How many private entries hold
// what is looked for is private, too.
void TellHidden(const CommandContext& context, bool isSelection, const QString& done) {
    ShownEntries& entries = context.Frame().Entries();
    const int hidden = isSelection || entries.IsFinding() ? 0 : entries.HiddenCount();
    QStringList told{done, hidden != 0 ? LeftOutText(hidden) : QString()};
    told.removeAll(QString());
    if (!told.isEmpty()) context.Say(told.join(' '));
}

constexpr const char* kNotPrinted =
    Untranslated("This view can't be printed. Choose a view of addresses or to-dos.");

bool CanPrint(const CommandContext& context) {
    if (context.Frame().Shown() != ViewKind::Birthdays) return true;
    context.Say(Text(kNotPrinted));
    return false;
}

void SetUp(QPrinter& printer, ViewFrame& frame) {
    printer.setPageLayout(LoadPageLayout());
    printer.setDocName(TitleOf(frame).name);
}

}  // namespace

void PrintView(const CommandContext& context) {
    if (!CanPrint(context)) return;
    QWidget& window = context.Window();
    ViewFrame& frame = context.Frame();
    QPrinter printer(QPrinter::HighResolution);
    SetUp(printer, frame);
    QPrintDialog dialog(&printer, &window);
    dialog.setWindowTitle(Text("Print"));
    dialog.setOption(QAbstractPrintDialog::PrintSelection, frame.Entries().SelectedCount() > 0);
    if (dialog.exec() != QDialog::Accepted) return;
    SavePageLayout(printer.pageLayout());
    const bool isSelection = printer.printRange() == QPrinter::Selection;
    const PrintResult result =
        Send(window, frame, isSelection ? SelectedRows(frame) : AllRows(frame), printer);
    TellFailure(window, result);
    if (result.end == PrintEnd::Done) TellHidden(context, isSelection, {});
}

void PreviewView(const CommandContext& context) {
    if (!CanPrint(context)) return;
    QWidget& window = context.Window();
    ViewFrame& frame = context.Frame();
    QPrinter printer(QPrinter::HighResolution);
    SetUp(printer, frame);
    QPrintPreviewDialog dialog(&printer, &window);
    dialog.setWindowTitle(Text("Print preview"));
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&](QPrinter* shown) {
        const PrintResult result = Send(window, frame, AllRows(frame), *shown);
        TellFailure(dialog, result);
        if (result.isCut) {
            dialog.setWindowTitle(CountText("Print preview of the first %1 page",
                                            "Print preview of the first %1 pages",
                                            kMostPreviewedPages));
        }
        // What was cancelled is no preview.
        if (result.end == PrintEnd::Cancelled) {
            QMetaObject::invokeMethod(&dialog, &QDialog::reject, Qt::QueuedConnection);
        }
    });
    dialog.exec();
    SavePageLayout(printer.pageLayout());
    // What was leafed through may have been printed from there.
    TellHidden(context, false, {});
}

void SaveViewAsPdf(const CommandContext& context) {
    if (!CanPrint(context)) return;
    QWidget& window = context.Window();
    ViewFrame& frame = context.Frame();
    const bool hasSelection = frame.Entries().SelectedCount() > 0;
    CExportFileDialog dialog(nullptr, "pdf", FromQt(Text("PDF files") + "|*.pdf||"), &frame,
                             kRangeAll | (hasSelection ? kRangeSelected : 0), kRangeAll);
    const CString caption = FromQt(Text("Save as PDF"));
    dialog.m_ofn.lpstrTitle = caption;
    const PageTitle title = TitleOf(frame);
    const SaveStart start(dialog, title.name, ".pdf");
    if (dialog.DoModal() != IDOK) return;
    KeepFolderOf(ToUtf8(dialog.GetPathName()));
    const QString file = FromUtf8(ToUtf8(dialog.GetPathName()));
    const bool isSelection = dialog.GetRange() == kRangeSelected;
    PagedDocument document(ItemsOf(frame, isSelection ? SelectedRows(frame) : AllRows(frame)),
                           title);
    ProgressBox box(window);
    const PrintResult result =
        SaveAsPdf(document, LoadPageLayout(), file, title.name, {}, box.Progress());
    TellFailure(window, result);
    if (result.end != PrintEnd::Done) return;
    TellHidden(context, isSelection, Text("The file \"%1\" was saved.").arg(file));
}

void SetUpPages(QWidget& window) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(LoadPageLayout());
    QPageSetupDialog dialog(&printer, &window);
    dialog.setWindowTitle(Text("Page setup"));
    if (dialog.exec() == QDialog::Accepted) SavePageLayout(printer.pageLayout());
}

std::string WriteViewAsPdf(ViewFrame& frame, const std::string& file) {
    if (frame.Shown() == ViewKind::Birthdays) return Text(kNotPrinted).toStdString();
    const PageTitle title = TitleOf(frame);
    PagedDocument document(ItemsOf(frame, AllRows(frame)), title);
    const PrintResult result = SaveAsPdf(document, LoadPageLayout(), FromUtf8(file), title.name, {},
                                         [](int, int) { return true; });
    return result.problem.toStdString();
}

}  // namespace orvo::desktop
