// The faces of the people in the icon views and on the cards.
// SPDX-License-Identifier: MIT
#include <QElapsedTimer>
#include <algorithm>
#include <memory>
#include <string>
#include <utility>

#include <desktop/details/Face.h>
#include <desktop/details/PhotoImage.h>
#include <desktop/views/RowFaces.h>
#include <exchange/lines/Origin.h>
#include <orvoshare/addressviews/DetailViewAddrInf.h>
#include <people/PersonReader.h>
#include <platform/qt/QtPicture.h>
#include <platform/window/pictures/CDC.h>

namespace orvo::desktop {
namespace {

constexpr int kPhotoSide = 128;       // pixels: the largest icon on a screen of two pixels for one
constexpr int kMostKept = 16 * 1024;  // kilobytes of photos
constexpr std::size_t kMostWanted = 200;
constexpr qint64 kMostAtOnce = 4;  // milliseconds

struct CardText {
    std::string text;
    std::string charset;
};

// Most cards have no photo, which is seen without reading them line by line.
bool MayHavePhoto(std::string_view card) {
    constexpr std::string_view kNames[] = {"PHOTO", "photo", "Photo"};
    return std::any_of(std::begin(kNames), std::end(kNames), [card](std::string_view name) {
        return card.find(name) != std::string_view::npos;
    });
}

QImage SmallPhoto(const CardText& card) {
    const Person person = ReadPerson(card.text, card.charset);
    if (!person.photo || person.photo->bytes.empty()) return {};
    // Of a picture that isn't square more than the square is read.
    return SquareOf(PhotoImage(person.photo->bytes, 2 * kPhotoSide), kPhotoSide);
}

CardText CardOf(CAddressTable& table, std::int64_t id) {
    CardText card;
    CAddressRecord record(table);
    if (table.Find(id, record) != 0 || record.GetSource(card.text) != 0) return {};
    if (!MayHavePhoto(card.text)) return {};
    std::string origin;
    record.GetOrigin(origin);
    if (const std::optional<Origin> known = ParseOrigin(origin)) card.charset = known->charset;
    return card;
}

}  // namespace

class RowFaces::RowFace : public QtPicture {
public:
    RowFace(RowFaces& faces, const CAddressRecord* record) : m_faces(faces), m_record(record) {}

    void Paint(QPainter& painter, const QRect& place) const override {
        Face face;
        face.kind = FaceKind::Masked;
        QImage photo;
        if (m_record) {
            face = FaceOf(*m_record);
            photo = m_faces.PhotoOf(m_record->GetId());
        }
        PaintFace(painter, place, face, photo);
    }

private:
    RowFaces& m_faces;
    const CAddressRecord* m_record;  // null for one that is masked
};

RowFaces::RowFaces(CAddressTable& table, std::function<void()> arrived)
    : m_table(table), m_arrived(std::move(arrived)), m_known(kMostKept) {
    m_pool.setMaxThreadCount(1);
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, &m_receiver, [this] { ReadNext(); });
}

RowFaces::~RowFaces() {
    m_pool.waitForDone();
}

void RowFaces::Draw(CDC& dc, const CRect& place, DWORD data, int image) {
    const CAddressRecord* record = image == kMaskedPicture ? nullptr : RecordOf(data);
    dc.DrawPicture(place, RowFace(*this, record));
}

void RowFaces::Forget(std::optional<std::int64_t> id) {
    ++m_turn;
    if (id) {
        m_known.remove(*id);
    } else {
        m_known.clear();
    }
}

QImage RowFaces::PhotoOf(std::int64_t id) {
    if (const QImage* known = m_known.object(id)) return *known;
    std::erase(m_wanted, id);
    if (m_wanted.size() == kMostWanted) m_wanted.erase(m_wanted.begin());
    m_wanted.push_back(id);
    if (!m_isReading) m_timer.start();
    return {};
}

// Until a photo is found; after a few milliseconds other things have their turn.
void RowFaces::ReadNext() {
    QElapsedTimer clock;
    clock.start();
    while (!m_wanted.empty()) {
        if (clock.hasExpired(kMostAtOnce)) return m_timer.start();
        const std::int64_t id = m_wanted.back();
        m_wanted.pop_back();
        CardText card = CardOf(m_table, id);
        if (card.text.empty()) {
            m_known.insert(id, new QImage);
            continue;
        }
        m_isReading = true;
        m_pool.start([this, id, turn = m_turn, card = std::move(card)] {
            const QImage photo = SmallPhoto(card);
            QMetaObject::invokeMethod(
                &m_receiver, [this, id, turn, photo] { Take(id, turn, photo); },
                Qt::QueuedConnection);
        });
        return;
    }
}

// What was read before something changed is read again when it is painted.
void RowFaces::Take(std::int64_t id, int turn, const QImage& photo) {
    constexpr qsizetype kKilobyte = 1024;
    m_isReading = false;
    if (turn == m_turn) m_known.insert(id, new QImage(photo), 1 + photo.sizeInBytes() / kKilobyte);
    if (!photo.isNull()) m_arrived();
    if (!m_wanted.empty()) m_timer.start();
}

}  // namespace orvo::desktop
