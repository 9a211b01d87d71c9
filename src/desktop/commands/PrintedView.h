// What a view shows, for paper: the same texts and marks, and nothing of masked entries.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

#include <desktop/printing/PagedDocument.h>
#include <desktop/printing/PrintedItems.h>
#include <desktop/views/ViewFrame.h>

namespace orvo::desktop {

std::vector<int> AllRows(ViewFrame& frame);
std::vector<int> SelectedRows(ViewFrame& frame);

// The rows of the view that is shown; icons become rows of the list. A row that is gone when its
// page is laid out stays empty.
// Requires: the frame outlives the items, and goes on to show the same view.
std::unique_ptr<PrintedItems> ItemsOf(ViewFrame& frame, std::vector<int> rows);

// Names the entries and their category, and the present day.
PageTitle TitleOf(ViewFrame& frame);

}  // namespace orvo::desktop
