// The parts of a to-do with their heading and the button that adds one.
// SPDX-License-Identifier: MIT
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include <desktop/parts/PartPanel.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {

PartPanel::PartPanel(const PartsContext& context, PartTree::Listeners listeners)
    : m_tree(new PartTree(context, std::move(listeners))) {
    auto* add = new QPushButton(Text("Add part"));
    add->setAutoDefault(false);  // Return is a key of the tree
    connect(add, &QPushButton::clicked, m_tree, [this] { m_tree->AddPart(); });
    auto* line = new QHBoxLayout;
    line->addWidget(new QLabel(Text("Parts")));
    line->addStretch();
    line->addWidget(add);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(line);
    column->addWidget(m_tree);
}

}  // namespace orvo::desktop
