// Sends a document's pages to a printer, or into a PDF file.
// SPDX-License-Identifier: MIT
#include <QCoreApplication>
#include <QFile>
#include <QPagedPaintDevice>
#include <QPdfWriter>
#include <QPrinter>
#include <QSaveFile>
#include <algorithm>
#include <cerrno>
#include <functional>
#include <sys/stat.h>
#include <vector>

#include <desktop/printing/PrintJob.h>
#include <desktop/texts/Texts.h>
#include <platform/io/FileReplacement.h>
#include <platform/io/NewFileMode.h>
#include <platform/io/TrustedPath.h>

namespace orvo::desktop {
namespace {

// From 0, in the order in which they come out.
std::vector<int> ChosenPages(int count, const PrintedPages& pages) {
    std::vector<int> chosen;
    for (int page = 0; page < count; ++page) {
        if (pages.ranges.isEmpty() || pages.ranges.contains(page + 1)) chosen.push_back(page);
    }
    if (pages.fromLast) std::ranges::reverse(chosen);
    const auto most = static_cast<std::size_t>(pages.most);
    if (most > 0 && chosen.size() > most) chosen.resize(most);
    return chosen;
}

// Half of the progress is for breaking the pages, the other half for painting them.
PrintProgress HalfOf(const PrintProgress& progress, bool isSecond) {
    return [progress, isSecond](int done, int total) {
        constexpr int kSteps = 1000;
        const int step = static_cast<int>(static_cast<std::int64_t>(done) * kSteps / total);
        return progress(isSecond ? kSteps + step : step, 2 * kSteps);
    };
}

// Keeps the system's reason for the first problem: the next write would forget it, and where a part
// could be written Qt knows none.
class PdfFile : public QSaveFile {
public:
    using QSaveFile::QSaveFile;

    // A new file gets the permissions of any other with people's records, and no link of another
    // user is followed.
    bool Open() {
        const std::string path = QFile::encodeName(fileName()).toStdString();
        std::string target;
        m_problem = QString::fromStdString(FollowTrustedLinks(path, target));
        if (!m_problem.isEmpty()) return false;
        const bool isNew = !QFile::exists(fileName());
        return Try([&] {
            return open(WriteOnly) &&
                   (!isNew || ::fchmod(handle(), NewFileMode(FolderOf(target))) == 0);
        });
    }
    bool Commit() {
        return Try([this] { return commit(); });
    }
    bool IsWell() const { return m_problem.isEmpty(); }
    const QString& Problem() const { return m_problem; }

protected:
    qint64 writeData(const char* data, qint64 size) override {
        qint64 written = 0;
        Try([&] {
            written = QSaveFile::writeData(data, size);
            return written == size;
        });
        return written;
    }

private:
    bool Try(const std::function<bool()>& action) {
        errno = 0;
        if (action()) return true;
        if (m_problem.isEmpty()) m_problem = errno != 0 ? qt_error_string(errno) : errorString();
        return false;
    }

    QString m_problem;
};

// The device that the pages go to, and what can be asked of it.
struct Target {
    QPagedPaintDevice& device;
    std::function<bool()> isWell;
    std::function<void()> forget;  // what was painted so far; called while it is being painted on
};

PrintEnd PaintChosen(const PagedDocument& document, const Target& target, QPainter& painter,
                     const std::vector<int>& chosen, const PrintProgress& progress) {
    const int count = static_cast<int>(chosen.size());
    for (int i = 0; i < count; ++i) {
        if (!progress(i, count)) return PrintEnd::Cancelled;
        if (i > 0 && !target.device.newPage()) return PrintEnd::Failed;
        document.PaintPage(painter, chosen[static_cast<std::size_t>(i)]);
        if (!target.isWell()) return PrintEnd::Failed;
    }
    return PrintEnd::Done;
}

PrintEnd PaintPages(PagedDocument& document, const Target& target, const PrintedPages& pages,
                    const PrintProgress& progress) {
    if (!document.LayOut(target.device, HalfOf(progress, false))) return PrintEnd::Cancelled;
    QPainter painter;
    if (!painter.begin(&target.device)) return PrintEnd::Failed;
    const PrintEnd end =
        PaintChosen(document, target, painter, ChosenPages(document.PageCount(), pages),
                    HalfOf(progress, true));
    if (end != PrintEnd::Done) {
        target.forget();
        return end;
    }
    return painter.end() && target.isWell() ? end : PrintEnd::Failed;
}

}  // namespace

PrintResult Print(PagedDocument& document, QPrinter& printer, const PrintedPages& pages,
                  const PrintProgress& progress) {
    const auto isWell = [&printer] {
        return printer.printerState() != QPrinter::Error &&
               printer.printerState() != QPrinter::Aborted;
    };
    const Target target{printer, isWell, [&printer] { printer.abort(); }};
    const PrintEnd end = PaintPages(document, target, pages, progress);
    const bool isCut = pages.most > 0 && document.PageCount() > pages.most;
    if (end != PrintEnd::Failed) return {end, {}, isCut};
    return {end, Text("The printer \"%1\" didn't take the pages. Check that it is switched on and "
                      "connected, or choose another printer.")
                     .arg(printer.printerName())};
}

PrintResult SaveAsPdf(PagedDocument& document, const QPageLayout& layout, const QString& file,
                      const QString& title, const PrintedPages& pages,
                      const PrintProgress& progress) {
    PdfFile target(file);
    const auto failure = [&target, &file] {
        return PrintResult{PrintEnd::Failed,
                           Text("The file \"%1\" can't be written: %2. Choose another folder or "
                                "make room, and try again.")
                               .arg(file, target.Problem())};
    };
    if (!target.Open()) return failure();
    PrintEnd end = PrintEnd::Done;
    {
        QPdfWriter writer(&target);
        writer.setPageLayout(layout);
        writer.setTitle(title);
        writer.setCreator(QCoreApplication::applicationName());
        const auto isWell = [&target] { return target.IsWell(); };
        end = PaintPages(document, {writer, isWell, [] {}}, pages, progress);
    }
    // Without a commit, what was written goes with the target.
    if (end == PrintEnd::Cancelled) return {end, {}};
    if (end == PrintEnd::Failed || !target.Commit()) return failure();
    return {};
}

}  // namespace orvo::desktop
