// The controls of a dialog template as a row of widgets.
// SPDX-License-Identifier: MIT
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include <platform/qt/QtConvert.h>
#include <platform/qt/QtFileDialogRow.h>

namespace orvo {
namespace {

QWidget* MakeButton(const DialogControl& control) {
    auto* button = new QPushButton;
    button->setAutoDefault(false);  // Enter stays with the dialog's own button
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    const QString text = ToQt(control.text.View());
    if (control.hiddenText) {
        button->setAccessibleName(text);
    } else {
        button->setText(text);
    }
    return button;
}

QWidget* MakeControl(const DialogControl& control) {
    switch (control.kind) {
        case ControlKind::Static:
            return new QLabel(ToQt(control.text.View()));
        case ControlKind::RadioButton:
            return new QRadioButton(ToQt(control.text.View()));
        default:
            return MakeButton(control);
    }
}

QHBoxLayout* MakeLine(QWidget& widget) {
    auto* line = new QHBoxLayout(&widget);
    line->setContentsMargins(0, 0, 0, 0);
    return line;
}

// Of the radio buttons in one widget only one is checked.
QHBoxLayout* AddGroup(QHBoxLayout& line) {
    auto* group = new QWidget;
    line.addWidget(group);
    return MakeLine(*group);
}

}  // namespace

QtControls AddControlRow(QGridLayout& grid, const DialogTemplate& dialog,
                         const std::function<void(UINT id)>& clicked) {
    QtControls controls;
    const int gridRow = grid.rowCount();
    auto* row = new QWidget;
    QHBoxLayout* line = MakeLine(*row);
    QHBoxLayout* group = nullptr;
    for (const DialogControl& control : dialog.controls) {
        QWidget* widget = MakeControl(control);
        widget->setEnabled(!control.disabled);
        const bool isFirst = &control == &dialog.controls.front();
        if (isFirst && control.kind == ControlKind::Static) {
            grid.addWidget(widget, gridRow, 0);
        } else {
            if (control.startsGroup || !group) group = AddGroup(*line);
            group->addWidget(widget);
        }
        const UINT id = static_cast<UINT>(control.id);
        if (control.id != -1) controls[id] = widget;
        if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
            QObject::connect(button, &QAbstractButton::clicked, row,
                             [clicked, id] { clicked(id); });
        }
    }
    line->addStretch();
    grid.addWidget(row, gridRow, 1, 1, grid.columnCount() - 1);
    return controls;
}

}  // namespace orvo
