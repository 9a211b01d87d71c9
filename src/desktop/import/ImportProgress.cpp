// The window that shows how far an import is, and ends it.
// SPDX-License-Identifier: MIT
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLabel>
#include <QProgressDialog>

#include <fmt/format.h>

#include <desktop/import/ImportProgress.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

constexpr int kMoment = 400;  // milliseconds
constexpr int kRefresh = 30;
constexpr int kSteps = 1000;
constexpr int kWidth = 420;
constexpr int kNameWidth = 380;

class ProgressWindow {
public:
    ProgressWindow(QWidget* parent, const std::vector<std::string>& files)
        : m_parent(parent),
          m_wasVisible(parent != nullptr && parent->isVisible()),
          m_window(QString(), Text("Cancel"), 0, kSteps, parent) {
        for (const std::string& file : files) {
            const QFileInfo info(FromUtf8(file));
            // A pipe has no size before it is read.
            const qint64 size = std::max<qint64>(1, info.size());
            m_files.push_back({info.fileName(), size});
            m_total += size;
        }
        auto* label = new QLabel;
        label->setTextFormat(Qt::PlainText);
        m_window.setLabel(label);
        m_window.setWindowTitle(Text("Importing"));
        m_window.setWindowModality(Qt::ApplicationModal);
        m_window.setMinimumDuration(kMoment);
        m_window.setMinimumWidth(kWidth);
        m_window.setAutoClose(false);
        m_window.setAutoReset(false);
        m_window.setValue(0);
    }

    bool Show(std::size_t file, std::size_t done, std::size_t total) {
        if (m_clock.isValid() && m_clock.elapsed() < kRefresh && file == m_file) return true;
        if (!m_clock.isValid() || file != m_file) ShowFile(file);
        const double part =
            total == 0 ? 1.0 : static_cast<double>(done) / static_cast<double>(total);
        const double bytes =
            static_cast<double>(m_before) + part * static_cast<double>(m_files.at(file).size);
        const double share = bytes / static_cast<double>(m_total);
        // At 0 the window would wait for its moment anew. It handles events, once it shows.
        m_window.setValue(1 + static_cast<int>(share * (kSteps - 1)));
        m_clock.start();
        const bool isClosed = m_wasVisible && !m_parent->isVisible();
        return !m_window.wasCanceled() && !isClosed;
    }

private:
    struct File {
        QString name;
        qint64 size;
    };

    void ShowFile(std::size_t file) {
        m_before = 0;
        for (std::size_t i = 0; i < file; ++i) m_before += m_files.at(i).size;
        m_file = file;
        const QString name =
            m_window.fontMetrics().elidedText(m_files.at(file).name, Qt::ElideMiddle, kNameWidth);
        m_window.setLabelText(Text("Importing %1").arg(name));
    }

    QWidget* m_parent;
    bool m_wasVisible;
    std::vector<File> m_files;
    qint64 m_total = 0;
    qint64 m_before = 0;     // bytes of the files that are done
    std::size_t m_file = 0;  // that is named
    QElapsedTimer m_clock;   // since the window was renewed
    QProgressDialog m_window;
};

}  // namespace

std::string TextOf(const SkippedLine& skipped) {
    return fmt::format("{}:{}: {}", skipped.file, skipped.line, skipped.reason);
}

ImportResult RunImport(QWidget* parent, const std::vector<std::string>& files,
                       const std::function<ImportResult(const FileProgress&)>& import) {
    ProgressWindow window(parent, files);
    return import([&window](std::size_t file, std::size_t done, std::size_t total) {
        return window.Show(file, done, total);
    });
}

}  // namespace orvo::desktop
