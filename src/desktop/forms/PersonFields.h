// What only the card of a person holds, in the form of its record.
// SPDX-License-Identifier: MIT
#pragma once

#include <QVBoxLayout>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include <contracts/RecordStore.h>
#include <desktop/forms/DetailSection.h>
#include <desktop/forms/FormFields.h>
#include <desktop/forms/PhotoField.h>
#include <people/PersonEdits.h>

namespace orvo::desktop {

class PersonFields {
public:
    // Reads what the record's card holds.
    // Returns:  0, or why not as a StoreStatus.
    long Read(const CAddressRecord& record);

    // Its fields, which go into the layout.
    void AddPhoto(QVBoxLayout& column);
    // Prefix, nickname and the like, folded away where all are empty.
    void AddTexts(QVBoxLayout& column);
    void AddSection(DetailKind kind, QVBoxLayout& column);

    bool IsChanged() const { return !Edits().IsEmpty(); }
    // Changes the card of the record, which may be another one by now than that which was read.
    // Returns:  0, or why not as a StoreStatus.
    long Write(CAddressRecord& record, CAddressTable& table) const;

    // What is shown, as FormField has it. `textOf` and `give` are about what was read last.
    struct Part {
        QString label;
        QWidget* field;
        std::function<bool()> isChanged;
        std::function<QString()> textOf;
        std::function<QString()> mine;
        std::function<void(bool keepsMine)> give;
    };
    std::vector<Part> Parts();
    // Reads what the record's card holds now.
    // Returns:  0, or why not as a StoreStatus.
    long ReadAgain(const CAddressRecord& record);

    // Leads to the first field that can't be saved as it is.
    // Returns:  true where all can be saved.
    bool Check() const;

private:
    struct TextLine {
        PersonText text;
        QString label;
        LineField* field;
    };
    struct Section {
        DetailSection* field;
        std::shared_ptr<const Person> given;  // of whose details its rows are
    };

    PersonEdits Edits() const;
    Part PartOf(const TextLine& line);
    Part PartOf(Section& section);
    Part PhotoPart();

    std::shared_ptr<const Person> m_person;  // as it was read last
    Face m_face;
    PhotoField* m_photo = nullptr;  // this and all others are the form's
    std::vector<TextLine> m_texts;
    std::vector<Section> m_sections;
};

}  // namespace orvo::desktop
