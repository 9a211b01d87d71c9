// How the cells of a row look beyond what the drawing functions are told.
// SPDX-License-Identifier: MIT
#pragma once

namespace orvo {

struct CellLook {
    bool showsPopupMark = true;
    bool isPlaceholder = false;
};

// The look of what is drawn as long as the object lives; the one before is in force again then.
class CellLookInForce {
public:
    explicit CellLookInForce(const CellLook& look) : m_before(Current()) { Current() = look; }
    ~CellLookInForce() { Current() = m_before; }
    CellLookInForce(const CellLookInForce&) = delete;
    CellLookInForce& operator=(const CellLookInForce&) = delete;

    static const CellLook& Get() { return Current(); }

private:
    static CellLook& Current() {
        static CellLook look;
        return look;
    }

    CellLook m_before;
};

}  // namespace orvo
