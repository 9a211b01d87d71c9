// Sends a document's pages to a printer, or into a PDF file.
// SPDX-License-Identifier: MIT
#pragma once

#include <QPageLayout>
#include <QPageRanges>
#include <QString>

#include <desktop/printing/PagedDocument.h>

class QPrinter;

namespace orvo::desktop {

enum class PrintEnd { Done, Cancelled, Failed };

struct PrintResult {
    PrintEnd end = PrintEnd::Done;
    QString problem;     // for the user, where it failed: what, why, and what he can do
    bool isCut = false;  // there are more pages than were asked for at most
};

struct PrintedPages {
    QPageRanges ranges;     // from 1; empty for all
    bool fromLast = false;  // the last page comes first
    int most = 0;           // of pages; 0 for no limit
};

// Lays the document out for the printer, and prints. Where it is cancelled or fails, the printer is
// asked to forget the job; one that can't prints the pages up to there.
PrintResult Print(PagedDocument& document, QPrinter& printer, const PrintedPages& pages,
                  const PrintProgress& progress);

// A file of that name is replaced once the new one is whole; else it stays as it was.
PrintResult SaveAsPdf(PagedDocument& document, const QPageLayout& layout, const QString& file,
                      const QString& title, const PrintedPages& pages,
                      const PrintProgress& progress);

}  // namespace orvo::desktop
