// Paths as the URIs by which programs hand files to each other.
// SPDX-License-Identifier: MIT
#include <QByteArray>
#include <array>
#include <filesystem>
#include <system_error>

#include <desktop/instance/FileUri.h>

namespace orvo::desktop {
namespace {

constexpr std::string_view kScheme = "file://";

// In front of the path, whose first slash is their last.
constexpr std::array<std::string_view, 2> kOfThisMachine{"file:///", "file://localhost/"};

std::string Decoded(std::string_view text) {
    const QByteArray bytes(text.data(), static_cast<qsizetype>(text.size()));
    return QByteArray::fromPercentEncoding(bytes).toStdString();
}

}  // namespace

std::string UriOfPath(const std::string& path) {
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    const QByteArray bytes = QByteArray::fromStdString(error ? path : absolute.string());
    return std::string(kScheme) + bytes.toPercentEncoding("/").toStdString();
}

std::string PathOfUri(std::string_view uri) {
    for (const std::string_view start : kOfThisMachine) {
        if (uri.starts_with(start)) return Decoded(uri.substr(start.size() - 1));
    }
    return std::string(uri);
}

}  // namespace orvo::desktop
