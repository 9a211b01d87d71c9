// The values of content lines as UTF-8.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <exchange/lines/LineText.h>
#include <exchange/lines/ValueDecoder.h>
#include <platform/text/Charset.h>

namespace orvo {
namespace {

struct ValueForm {
    TransferEncoding encoding;
    std::string_view charset;
};

ValueForm FormOf(std::string_view parameters) {
    return {EncodingOf(parameters), FindParameter(parameters, "CHARSET")};
}

std::string_view Bytes(const ContentLine& line, const ValueForm& form, std::string& storage) {
    if (form.encoding == TransferEncoding::None) return line.value;
    storage.clear();
    if (form.encoding == TransferEncoding::QuotedPrintable) {
        AppendQuotedPrintable(line.value, storage);
    } else {
        AppendBase64(line.value, storage);
    }
    return storage;
}

bool NamesOtherSet(const ValueForm& form) {
    return !form.charset.empty() && !EqualsIgnoringCase(form.charset, "UTF-8") &&
           !EqualsIgnoringCase(form.charset, "UTF8");
}

// Appends the line's text that is of a legacy set, each piece as a line of its own.
void AppendLegacy(const ContentLine& line, std::string& sample) {
    const ValueForm form = FormOf(line.parameters);
    if (form.encoding == TransferEncoding::Base64) return;
    std::string storage;
    std::string decoded;
    const std::string_view bytes = Bytes(line, form, storage);
    const bool isNamed = NamesOtherSet(form) && DecodeCharset(form.charset, bytes, decoded);
    if (!isNamed && IsLegacyText(bytes)) sample.append(bytes).append("\n");
    if (IsLegacyText(line.parameters)) sample.append(line.parameters).append("\n");
}

bool MayHoldLegacyText(std::string_view text) {
    if (!IsValidUtf8(text) || text.find('\x1B') != std::string_view::npos) return true;
    // Bytes in quoted-printable, other than ASCII, but for the escape.
    constexpr std::string_view kHighDigits = "189ABCDEFabcdef";
    for (std::size_t at = 0; (at = text.find('=', at)) != std::string_view::npos; ++at) {
        const std::string_view digit = text.substr(at + 1, 1);
        if (!digit.empty() && kHighDigits.find(digit) != std::string_view::npos) return true;
    }
    return false;
}

// Names may hold anything between their letters and digits.
std::string PlainName(std::string_view charset) {
    std::string name(charset);
    std::erase_if(name, [](unsigned char c) {
        return c <= ' ' || c >= 0x7F ||
               std::string_view(",=\"").find(static_cast<char>(c)) != std::string_view::npos;
    });
    return name;
}

}  // namespace

std::string_view GuessFileCharset(std::string_view text) {
    if (!MayHoldLegacyText(text)) return {};
    std::string sample;
    ContentLineReader reader(text);
    ContentLine line;
    while (reader.Next(line)) {
        AppendLegacy(line, sample);
        reader.Forget();
    }
    return sample.empty() ? std::string_view() : GuessLegacyCharset(sample);
}

std::string LegacyCharsetOf(const LineList& lines, std::string_view fileCharset) {
    std::string sample;
    std::string decoded;
    std::string_view named;
    for (const ContentLine& line : lines) {
        const ValueForm form = FormOf(line.parameters);
        if (named.empty() && !line.name.empty() && NamesOtherSet(form)) named = form.charset;
        AppendLegacy(line, sample);
    }
    if (sample.empty()) return {};
    // Some programs name the set on one line only.
    for (const std::string_view charset : {named, fileCharset}) {
        if (!charset.empty() && DecodeCharset(charset, sample, decoded)) return PlainName(charset);
    }
    return std::string(GuessLegacyCharset(sample));
}

bool ValueDecoder::IsOfLegacySet(std::string_view bytes) {
    if (!IsLegacyText(bytes)) return false;
    if (m_charset.empty()) m_charset = LegacyCharsetOf(m_lines, {});
    if (m_charset.empty()) m_charset = GuessLegacyCharset(bytes);
    // UTF-8 with an escape in it stays where the entry is of another set.
    return !IsValidUtf8(bytes) || EqualsIgnoringCase(m_charset, "ISO-2022-JP");
}

std::string_view ValueDecoder::Decode(const ContentLine& line, std::string& storage) {
    std::string_view bytes = line.value;
    if (!line.parameters.empty()) {
        const ValueForm form = FormOf(line.parameters);
        bytes = Bytes(line, form, storage);
        std::string decoded;
        if (NamesOtherSet(form) && DecodeCharset(form.charset, bytes, decoded)) {
            storage = std::move(decoded);
            return storage;
        }
    }
    if (!IsOfLegacySet(bytes)) return bytes;
    storage = DecodeLegacy(m_charset, bytes);
    return storage;
}

std::string ValueDecoder::DecodeText(std::string_view bytes) {
    return IsOfLegacySet(bytes) ? DecodeLegacy(m_charset, bytes) : std::string(bytes);
}

bool ValueDecoder::IsLegacy(const ContentLine& line) {
    std::string sample;
    AppendLegacy(line, sample);
    return !sample.empty();
}

}  // namespace orvo
