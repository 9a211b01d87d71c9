// The parts of a to-do with their heading and the button that adds one.
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <cstdint>

#include <desktop/parts/PartTree.h>

namespace orvo::desktop {

class PartPanel : public QWidget {
public:
    // The context outlives the panel.
    PartPanel(const PartsContext& context, PartTree::Listeners listeners);

    void Show(std::int64_t whole) { m_tree->Show(whole); }
    void Leave() { m_tree->Leave(); }

private:
    PartTree* m_tree;  // Qt's
};

}  // namespace orvo::desktop
