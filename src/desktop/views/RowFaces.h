// The faces of the people in the icon views and on the cards.
// SPDX-License-Identifier: MIT
#pragma once

#include <QCache>
#include <QImage>
#include <QObject>
#include <QThreadPool>
#include <QTimer>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include <contracts/RecordStore.h>
#include <platform/window/pictures/RowPictures.h>

namespace orvo::desktop {

// A row has the letters of its name until its photo has been read. Photos are read for rows that
// are painted, one at a time between events, and unfolded in another thread; a few hundred are
// kept, small. A masked row tells neither photo nor letters.
class RowFaces : public RowPictures {
public:
    // The table outlives the faces. `arrived` is called where a photo is there to be painted.
    RowFaces(CAddressTable& table, std::function<void()> arrived);
    ~RowFaces() override;

    // The data word is that of an address.
    void Draw(CDC& dc, const CRect& place, DWORD data, int image) override;

    // What is known of one record, or of all, may no longer be so.
    void Forget(std::optional<std::int64_t> id);

    // False while photos are still being read.
    bool IsWhole() const { return m_wanted.empty() && !m_isReading; }

private:
    class RowFace;

    QImage PhotoOf(std::int64_t id);  // null where none is there yet
    void ReadNext();
    void Take(std::int64_t id, int turn, const QImage& photo);

    CAddressTable& m_table;
    std::function<void()> m_arrived;
    QObject m_receiver;                    // of what the other thread has done
    QCache<std::int64_t, QImage> m_known;  // null for those who have no photo
    std::vector<std::int64_t> m_wanted;    // the last one is read next
    bool m_isReading = false;
    int m_turn = 0;  // counts what was forgotten
    QTimer m_timer;
    QThreadPool m_pool;
};

}  // namespace orvo::desktop
