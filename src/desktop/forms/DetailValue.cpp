// What a detail of a person says, as fields of a form.
// SPDX-License-Identifier: MIT
#include <QGridLayout>
#include <QHBoxLayout>
#include <algorithm>

#include <desktop/forms/DetailValue.h>
#include <desktop/forms/FormFields.h>
#include <desktop/forms/PersonDateField.h>
#include <desktop/texts/Texts.h>

namespace orvo::desktop {
namespace {

class LineValue : public DetailValue {
public:
    explicit LineValue(const Detail& detail) : m_line(detail.text) {
        m_line.setAccessibleName(Text(NameOf(detail.kind)));
        auto* row = new QHBoxLayout(this);
        row->setContentsMargins(0, 0, 0, 0);
        row->addWidget(&m_line);
        setFocusProxy(&m_line);
    }
    bool IsChanged() const override { return m_line.IsChanged(); }
    void PutInto(Detail& detail) const override {
        if (IsChanged()) detail.text = m_line.text().trimmed().toStdString();
    }
    QStringList Texts() const override { return {m_line.text()}; }
    void SetTexts(const QStringList& texts) override { m_line.setText(texts.value(0)); }

private:
    LineField m_line;
};

class DateValue : public DetailValue {
public:
    explicit DateValue(const Detail& detail) : m_field(detail) {
        m_field.Line().setAccessibleName(Text("Day"));
        auto* row = new QHBoxLayout(this);
        row->setContentsMargins(0, 0, 0, 0);
        row->addWidget(&m_field);
        setFocusProxy(&m_field);
    }
    bool IsChanged() const override { return m_field.IsChanged(); }
    void PutInto(Detail& detail) const override { m_field.PutInto(detail); }
    QWidget* Wrong() override {
        m_field.Check();
        return m_field.IsRight() ? nullptr : &m_field.Line();
    }
    QStringList Texts() const override { return {m_field.Line().text()}; }
    void SetTexts(const QStringList& texts) override { m_field.Line().setText(texts.value(0)); }

private:
    PersonDateField m_field;
};

struct AddressPart {
    std::size_t part;  // of Detail::parts
    const char* name;
    bool isAlways;  // false for what shows only where it is filled in
    int row;
    int column;
};
constexpr std::size_t kStreet = 2;
constexpr int kStreetLines = 2;
constexpr int kPartCharacters = 8;  // that are always seen
constexpr AddressPart kAddressParts[] = {
    {0, Untranslated("PO box"), false, 0, 0},      {1, Untranslated("Extension"), false, 0, 1},
    {kStreet, Untranslated("Street"), true, 1, 0}, {3, Untranslated("City"), true, 2, 0},
    {4, Untranslated("State"), true, 2, 1},        {5, Untranslated("ZIP code"), true, 3, 0},
    {6, Untranslated("Country"), true, 3, 1},
};

// What each field is for stands in it while it is empty, so that the whole takes little room.
class AddressValue : public DetailValue {
public:
    explicit AddressValue(const Detail& detail)
        : m_street(new TextField(detail.parts.at(kStreet), kStreetLines)) {
        auto* grid = new QGridLayout(this);
        grid->setContentsMargins(0, 0, 0, 0);
        for (const AddressPart& part : kAddressParts) {
            if (part.part == kStreet) {
                AddStreet(*grid, part);
            } else if (part.isAlways || !detail.parts.at(part.part).empty()) {
                AddLine(*grid, part, detail.parts.at(part.part));
            }
        }
        setFocusProxy(m_street);
    }

    bool IsChanged() const override {
        return m_street->IsChanged() ||
               std::any_of(m_lines.begin(), m_lines.end(),
                           [](const Line& line) { return line.field->IsChanged(); });
    }
    void PutInto(Detail& detail) const override {
        if (m_street->IsChanged()) detail.parts.at(kStreet) = m_street->Utf8();
        for (const Line& line : m_lines) {
            if (line.field->IsChanged()) detail.parts.at(line.part) = line.field->Utf8();
        }
    }
    QStringList Texts() const override {
        QStringList texts{m_street->Shown()};
        for (const Line& line : m_lines) texts.append(line.field->text());
        return texts;
    }
    void SetTexts(const QStringList& texts) override {
        m_street->setPlainText(texts.value(0));
        for (std::size_t i = 0; i < m_lines.size(); ++i) {
            m_lines[i].field->setText(texts.value(static_cast<qsizetype>(i) + 1));
        }
    }

private:
    struct Line {
        std::size_t part;
        LineField* field;
    };

    void AddStreet(QGridLayout& grid, const AddressPart& part) {
        m_street->setPlaceholderText(Text(part.name));
        m_street->setAccessibleName(Text(part.name));
        m_street->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        grid.addWidget(m_street, part.row, 0, 1, 2);
    }
    void AddLine(QGridLayout& grid, const AddressPart& part, const std::string& text) {
        auto* field = new LineField(text);
        field->setPlaceholderText(Text(part.name));
        field->setMinimumWidth(kPartCharacters * field->fontMetrics().averageCharWidth());
        field->setAccessibleName(Text(part.name));
        grid.addWidget(field, part.row, part.column);
        m_lines.push_back({part.part, field});
    }

    TextField* m_street;
    std::vector<Line> m_lines;
};

}  // namespace

DetailValue* DetailValue::Make(const Detail& detail) {
    switch (detail.kind) {
        case DetailKind::Address:
            return new AddressValue(detail);
        case DetailKind::Birthday:
        case DetailKind::Anniversary:
        case DetailKind::Date:
            return new DateValue(detail);
        default:
            return new LineValue(detail);
    }
}

}  // namespace orvo::desktop
