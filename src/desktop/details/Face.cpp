// What stands for a person beside the name: a photo, or the first letters of the name.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QFontMetricsF>
#include <QPainter>
#include <QPalette>
#include <algorithm>

#include <desktop/details/Face.h>
#include <desktop/symbols/Symbol.h>
#include <desktop/texts/Texts.h>
#include <platform/qt/QtConvert.h>
#include <platform/text/Hash.h>
#include <platform/window/pictures/Contrast.h>

namespace orvo::desktop {
namespace {

// Parts of the face's width.
constexpr qreal kLettersHeight = 0.4;
constexpr qreal kOneLetterHeight = 0.5;
constexpr qreal kSymbolWidth = 0.54;

struct Shade {
    qreal saturation;
    qreal lightness;
};
constexpr Shade kLightGround{0.42, 0.85};
constexpr Shade kLightLetters{0.50, 0.27};
constexpr Shade kDarkGround{0.28, 0.29};
constexpr Shade kDarkLetters{0.45, 0.88};

QColor ColourOf(qreal hue, Shade shade) {
    return QColor::fromHslF(static_cast<float>(hue), static_cast<float>(shade.saturation),
                            static_cast<float>(shade.lightness));
}

// The first letter or digit, with no sign before it.
QString FirstLetter(const QString& text) {
    for (const char32_t character : text.toUcs4()) {
        const char32_t capital = QChar::toUpper(character);
        if (QChar::isLetterOrNumber(character)) return QString::fromUcs4(&capital, 1);
    }
    return {};
}

bool StandsAlone(const QString& letter) {
    switch (QChar::script(letter.toUcs4().front())) {
        case QChar::Script_Han:
        case QChar::Script_Hiragana:
        case QChar::Script_Katakana:
        case QChar::Script_Hangul:
            return true;
        default:
            return false;
    }
}

QString LettersOf(const QString& given, const QString& family) {
    const QString first = FirstLetter(given);
    const QString last = FirstLetter(family);
    return !last.isEmpty() && StandsAlone(last) ? last : first + last;
}

bool IsDark() {
    constexpr int middle = 128;
    return QApplication::palette().color(QPalette::Base).lightness() < middle;
}

void PaintLetters(QPainter& painter, const QRectF& place, const Face& face, const QColor& colour) {
    const qreal height = face.letters.size() > 1 ? kLettersHeight : kOneLetterHeight;
    QFont font = QApplication::font();
    font.setPixelSize(std::max(1, qRound(place.height() * height)));
    font.setWeight(QFont::Medium);
    painter.setFont(font);
    painter.setPen(colour);
    const QFontMetricsF metrics(font);
    QRectF seen = metrics.tightBoundingRect(face.letters);
    // Signs above or below a capital don't move it.
    if (!StandsAlone(face.letters))
        seen = {seen.left(), -metrics.capHeight(), seen.width(), metrics.capHeight()};
    painter.drawText(place.center() - seen.center(), face.letters);
}

void PaintPhoto(QPainter& painter, const QRectF& place, const QImage& photo) {
    QBrush brush(photo);
    const QSizeF size = photo.deviceIndependentSize();
    brush.setTransform(QTransform::fromTranslate(place.left(), place.top())
                           .scale(place.width() / size.width(), place.height() / size.height()));
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
    painter.drawEllipse(place);
}

Symbol SymbolOf(FaceKind kind) {
    if (kind == FaceKind::Company) return Symbol::Building;
    return kind == FaceKind::Masked ? Symbol::Padlock : Symbol::Person;
}

}  // namespace

Face FaceOf(const QString& given, const QString& family, const QString& company) {
    Face face;
    face.letters = LettersOf(given, family);
    const bool isNamed = !face.letters.isEmpty();
    if (isNamed) {
        face.kind = FaceKind::Letters;
    } else if (!company.trimmed().isEmpty()) {
        face.kind = FaceKind::Company;
    }
    const QString hashed = isNamed ? given + '\n' + family : company;
    const QByteArray name = hashed.toUtf8();
    face.colour = static_cast<int>(HashOf({name.data(), static_cast<std::size_t>(name.size())}) %
                                   kFaceColours);
    return face;
}

Face FaceOf(const CAddressRecord& record) {
    const auto text = [&record](AddressField field) { return FromUtf8(record.Utf8(field)); };
    return FaceOf(text(AddressField::First), text(AddressField::Name), text(AddressField::Company));
}

FaceColours ColoursOf(const Face& face, bool isDark) {
    const qreal hue = static_cast<qreal>(face.colour) / kFaceColours;
    const QColor ground = ColourOf(hue, isDark ? kDarkGround : kLightGround);
    const QColor letters = ColourOf(hue, isDark ? kDarkLetters : kLightLetters);
    const COLORREF beneath = ColourFromQt(ground);
    return {ground,
            ColourToQt(Readable(ColourFromQt(letters), Opposite(beneath), beneath, kTextContrast))};
}

QImage SquareOf(const QImage& picture, int side) {
    const int width = std::min(picture.width(), picture.height());
    QImage square =
        picture.copy((picture.width() - width) / 2, (picture.height() - width) / 2, width, width);
    if (width <= side) return square;
    return square.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

void PaintFace(QPainter& painter, const QRectF& place, const Face& face, const QImage& photo) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (!photo.isNull()) {
        PaintPhoto(painter, place, photo);
        return painter.restore();
    }
    FaceColours colours = ColoursOf(face, IsDark());
    if (face.kind == FaceKind::Masked) {
        const QPalette palette = QApplication::palette();
        colours = {palette.color(QPalette::Button), palette.color(QPalette::ButtonText)};
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours.ground);
    painter.drawEllipse(place);
    if (face.kind == FaceKind::Letters) {
        PaintLetters(painter, place, face, colours.letters);
    } else {
        const qreal side = place.width() * kSymbolWidth;
        QRectF symbol(0, 0, side, side);
        symbol.moveCenter(place.center());
        PaintSymbol(painter, symbol, SymbolOf(face.kind), colours.letters);
    }
    painter.restore();
}

}  // namespace orvo::desktop
