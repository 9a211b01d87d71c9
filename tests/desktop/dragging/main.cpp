// A program with a small window out of which files are dragged: X Y FILE...
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QTextStream>
#include <QUrl>
#include <QWidget>

namespace {

constexpr int kUsage = 2;
constexpr int kFirstFile = 3;
constexpr int kSide = 40;

void Tell(const QString& line) {
    QTextStream(stdout) << line << Qt::endl;
}

const char* NameOf(Qt::DropAction action) {
    if (action == Qt::CopyAction) return "copy";
    return action == Qt::IgnoreAction ? "none" : "another action";
}

// Tells the action whenever what lies below the mouse would take another one, and at the end what
// became of the drag. It stays, since the files are fetched from it.
class Source : public QWidget {
public:
    explicit Source(QList<QUrl> files) : m_files(std::move(files)) {}

protected:
    void mousePressEvent(QMouseEvent*) override {
        auto* drag = new QDrag(this);   // Qt's
        auto* content = new QMimeData;  // the drag's
        content->setUrls(m_files);
        drag->setMimeData(content);
        QObject::connect(drag, &QDrag::actionChanged, this,
                         [](Qt::DropAction action) { Tell(NameOf(action)); });
        Tell("begun");
        const Qt::DropAction done =
            drag->exec(Qt::CopyAction | Qt::MoveAction | Qt::LinkAction, Qt::CopyAction);
        // Who is told may end this program, before what it sent has left it.
        QGuiApplication::sync();
        Tell(QString("ended %1").arg(NameOf(done)));
    }

private:
    QList<QUrl> m_files;
};

}  // namespace

int main(int count, char** arguments) {
    const QApplication application(count, arguments);
    const QStringList words = QCoreApplication::arguments();
    if (words.size() <= kFirstFile) return kUsage;
    QList<QUrl> files;
    for (const QString& file : words.mid(kFirstFile)) files.push_back(QUrl::fromLocalFile(file));
    Source source(std::move(files));
    source.setWindowTitle("Files to drag");
    source.setGeometry(words[1].toInt(), words[2].toInt(), kSide, kSide);
    source.show();
    return QApplication::exec();
}
