// An address in one line.
// SPDX-License-Identifier: MIT
#pragma once

#include <platform/Export.h>
#include <platform/text/CString.h>

namespace orvo {

struct AddressParts {
    CString address;
    CString city;
    CString state;
    CString zipCode;
    CString country;
};

// The English form.
constexpr const char* kAddressFormat = "%1s, %2s, %3s,  %4s %5s";

// Puts the parts into the places "%s" of the form: address, city, state, zip code, country; under
// code page 932 zip code, state, city, address, country. A number before the "s", of up to two
// digits, is the least number of bytes; a shorter part has blanks before it. Then a blank before a
// comma goes together with the comma, and so do blanks and commas at the end and white space at the
// start. The form may be a translation: one that hasn't just five places, or has a "%" of another
// use, gives way to the English one.
ORVO_API CString AddressLine(const AddressParts& parts, const CString& format);

}  // namespace orvo
