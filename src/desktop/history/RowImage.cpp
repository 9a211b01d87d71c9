// All that a store holds of a row, in one piece.
// SPDX-License-Identifier: MIT
#include "RowImage.h"

#include <array>
#include <cstring>
#include <functional>

namespace orvo::desktop {
namespace {

class ImageWriter {
public:
    template <class Number>
    void Add(Number number) {
        std::array<char, sizeof(Number)> bytes{};
        std::memcpy(bytes.data(), &number, sizeof(Number));
        m_image.append(bytes.data(), bytes.size());
    }

    void AddText(std::string_view text) {
        Add(text.size());
        m_image.append(text);
    }

    void AddDate(const std::optional<CivilTime>& date) {
        Add(date.has_value());
        if (!date) return;
        for (const int part :
             {date->year, date->month, date->day, date->hour, date->minute, date->second}) {
            Add(part);
        }
    }

    std::string Take() { return std::move(m_image); }

private:
    std::string m_image;
};

class ImageReader {
public:
    explicit ImageReader(std::string_view image) : m_rest(image) {}

    template <class Number>
    void Take(Number& number) {
        std::memcpy(&number, m_rest.data(), sizeof(Number));
        m_rest.remove_prefix(sizeof(Number));
    }

    void TakeText(std::string& text) {
        std::size_t size = 0;
        Take(size);
        text = m_rest.substr(0, size);
        m_rest.remove_prefix(size);
    }

    void TakeDate(std::optional<CivilTime>& date) {
        bool isThere = false;
        Take(isThere);
        if (!isThere) return;
        CivilTime& civil = date.emplace();
        for (int* part :
             {&civil.year, &civil.month, &civil.day, &civil.hour, &civil.minute, &civil.second}) {
            Take(*part);
        }
    }

private:
    std::string_view m_rest;
};

}  // namespace

// An engine need not keep what only to-dos have with an address.
RowImage ImageOf(TableKind kind, const StoredRow& row, const RowExtra& extra) {
    const bool isToDo = kind == TableKind::ToDo;
    ImageWriter image;
    image.Add(row.id);
    image.Add(row.placement);
    image.Add(row.category);
    image.Add(row.flags);
    image.Add(isToDo ? row.priority : 0);
    image.AddDate(isToDo ? row.due : std::nullopt);
    image.AddDate(isToDo ? row.completed : std::nullopt);
    image.AddText(row.fields);
    image.AddText(extra.note);
    image.AddText(extra.source);
    image.AddText(extra.origin);
    return {image.Take(), extra.shared};
}

WholeRow RowOfImage(const RowImage& image) {
    WholeRow whole;
    ImageReader reader(image.bytes);
    reader.Take(whole.row.id);
    reader.Take(whole.row.placement);
    reader.Take(whole.row.category);
    reader.Take(whole.row.flags);
    reader.Take(whole.row.priority);
    reader.TakeDate(whole.row.due);
    reader.TakeDate(whole.row.completed);
    reader.TakeText(whole.fields);
    reader.TakeText(whole.extra.note);
    reader.TakeText(whole.extra.source);
    reader.TakeText(whole.extra.origin);
    whole.extra.shared = image.shared;
    return whole;
}

std::uint64_t HashOf(const RowImage& image) {
    constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15;  // odd, so that no bit is lost
    std::uint64_t hash = std::hash<std::string>()(image.bytes);
    for (const SharedText& text : image.shared) {
        hash = hash * kFactor + std::hash<std::string>()(text.Text());
    }
    return hash;
}

StoreStatus ReadImage(StoreEngine& engine, TableKind kind, std::int64_t id,
                      std::optional<RowImage>& image) {
    StoredRow row;
    std::string fields;
    RowExtra extra;
    StoreStatus status = engine.Read(kind, id, row, fields);
    if (status == StoreStatus::Ok) status = engine.ReadExtra(kind, id, extra);
    image.reset();
    if (status == StoreStatus::Ok) image = ImageOf(kind, row, extra);
    return status == StoreStatus::Gone ? StoreStatus::Ok : status;
}

}  // namespace orvo::desktop
