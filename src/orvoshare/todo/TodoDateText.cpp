// How the list of to-dos shows, reads and chooses a date.
// SPDX-License-Identifier: MIT
#include <orvoshare/todo/TodoDates.h>
#include <orvoshare/todo/TodoListbox.h>

namespace orvo {

void CTodoListbox::BuildDateString(long date, CString& text, int withYear) {
    DateText(date, text, withYear);
}

long CTodoListbox::ParseDateString(CString& text) {
    return DateOfText(text);
}

long CTodoListbox::GetMeADate(int item, long current) {
    return ChosenDate(item, current);
}

}  // namespace orvo
