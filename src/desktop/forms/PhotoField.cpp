// The photo of a person in a form.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QImageReader>
#include <QJsonObject>
#include <QKeyEvent>
#include <QPainter>
#include <QStandardPaths>
#include <QVBoxLayout>

#include <desktop/details/PhotoImage.h>
#include <desktop/forms/PhotoField.h>
#include <desktop/forms/PhotoMaker.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

constexpr int kShownSide = 80;  // pixels, of a screen without scaling

QString Pictures() {
    QStringList patterns;
    for (const QByteArray& format : QImageReader::supportedImageFormats()) {
        patterns.append("*." + QString::fromLatin1(format));
    }
    return QString("%1 (%2)").arg(Text("Pictures"), patterns.join(' '));
}

}  // namespace

PhotoField::PhotoField(const std::optional<PersonPhoto>& given, const Face& face)
    : m_given(given), m_face(face) {
    setObjectName("photo");
    setAcceptDrops(true);
    m_button.setAutoRaise(true);
    m_button.setIconSize({kShownSide, kShownSide});
    m_button.setFocusPolicy(Qt::StrongFocus);
    m_button.setAccessibleName(Text("Photo"));
    m_button.setToolTip(Text("Click to choose a photo, drop one here, or paste one with Ctrl+V"));
    m_remark.setTextFormat(Qt::PlainText);
    m_remark.setWordWrap(true);
    m_remark.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // a long name is cut off
    connect(&m_button, &QToolButton::clicked, this, [this] { Choose(); });
    connect(&m_remove, &QPushButton::clicked, this, [this] { Remove(); });
    LayOut();
    ShowPhoto();
}

void PhotoField::LayOut() {
    auto* choose = new QPushButton(Text("Choose photo..."));
    auto* paste = new QPushButton(Text("Paste photo"));
    m_remove.setText(Text("Remove photo"));
    connect(choose, &QPushButton::clicked, this, [this] { Choose(); });
    connect(paste, &QPushButton::clicked, this, [this] { Paste(); });
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(&m_button);
    auto* column = new QVBoxLayout;
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : {choose, paste, &m_remove}) {
        button->setAutoDefault(false);
        buttons->addWidget(button);
    }
    buttons->addStretch();
    column->addStretch();
    column->addLayout(buttons);
    column->addWidget(&m_remark);
    column->addStretch();
    row->addLayout(column, 1);
}

void PhotoField::Give(const std::optional<PersonPhoto>& given, bool keepsMine) {
    m_given = given;
    if (!keepsMine) m_edit.reset();
    ShowPhoto();
}

const PersonPhoto* PhotoField::Present() const {
    const std::optional<PersonPhoto>& photo = Shown();
    return photo && !(photo->bytes.empty() && photo->link.empty()) ? &*photo : nullptr;
}

QString PhotoField::Remark(bool isSeen) const {
    const PersonPhoto* photo = Present();
    if (!photo || isSeen) return {};
    if (photo->bytes.empty()) {
        constexpr int longest = 60;  // characters
        const QString link = fontMetrics().elidedText(FromUtf8(photo->link), Qt::ElideMiddle,
                                                      longest * fontMetrics().averageCharWidth());
        return Text("The photo is only a link, which isn't fetched: %1").arg(link);
    }
    return Text("The photo can't be shown.");
}

void PhotoField::ShowPhoto() {
    const PersonPhoto* photo = Present();
    QImage image;
    if (photo) image = PhotoImage(photo->bytes, qRound(2 * kShownSide * devicePixelRatioF()));
    m_button.setIcon(Picture(image));
    m_remove.setEnabled(photo != nullptr);
    const QString remark = Remark(!image.isNull());
    m_remark.setText(remark);
    m_remark.setVisible(!remark.isEmpty());
}

QPixmap PhotoField::Picture(const QImage& photo) const {
    const qreal scale = devicePixelRatioF();
    const int side = qRound(kShownSide * scale);
    QPixmap picture(side, side);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    const QImage square = photo.isNull() ? photo : SquareOf(photo, side);
    PaintFace(painter, QRectF(0, 0, kShownSide, kShownSide), m_face, square);
    return picture;
}

void PhotoField::Take(const QImage& image, const QString& problem) {
    if (!image.isNull()) {
        m_edit = MakePhoto(image);
        return ShowPhoto();
    }
    m_remark.setText(problem);
    m_remark.show();
}

void PhotoField::Choose() {
    const QString path = QFileDialog::getOpenFileName(
        this, Text("Choose a photo"),
        QStandardPaths::writableLocation(QStandardPaths::PicturesLocation), Pictures());
    if (path.isEmpty()) return;
    QString problem;
    const QImage image = ReadPhoto(path, problem);
    Take(image, problem);
}

void PhotoField::Paste() {
    QString problem;
    const QMimeData* pasted = QApplication::clipboard()->mimeData();
    const QImage image = pasted ? ReadPhoto(*pasted, problem) : QImage();
    Take(image, problem);
}

// One that was given is to be taken off the card.
void PhotoField::Remove() {
    m_edit = m_given ? std::optional(PersonPhoto()) : std::nullopt;
    m_button.setFocus();
    ShowPhoto();
}

void PhotoField::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Paste)) return Paste();
    if (event->matches(QKeySequence::Delete) && Present()) return Remove();
    QWidget::keyPressEvent(event);
}

void PhotoField::dragEnterEvent(QDragEnterEvent* event) {
    if (MayBePhoto(*event->mimeData())) event->acceptProposedAction();
}

void PhotoField::dropEvent(QDropEvent* event) {
    QString problem;
    const QImage image = ReadPhoto(*event->mimeData(), problem);
    event->acceptProposedAction();
    Take(image, problem);
}

QJsonValue PhotoField::Kept() const {
    if (!m_edit) return {};
    const QByteArray bytes = QByteArray::fromStdString(m_edit->bytes);
    return QJsonObject{{"mediaType", FromUtf8(m_edit->mediaType)},
                       {"bytes", QString::fromLatin1(bytes.toBase64())}};
}

void PhotoField::ShowKept(const QJsonValue& kept) {
    if (!kept.isObject()) return;
    const QByteArray bytes = QByteArray::fromBase64(kept["bytes"].toString().toLatin1());
    m_edit = PersonPhoto{kept["mediaType"].toString().toStdString(), bytes.toStdString(), {}};
    ShowPhoto();
}

}  // namespace orvo::desktop
