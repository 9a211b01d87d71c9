// The form of an address.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QButtonGroup>
#include <QFontMetrics>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QRadioButton>

#include <desktop/forms/AddressForm.h>
#include <desktop/forms/FormDialog.h>
#include <desktop/forms/FormFields.h>
#include <desktop/forms/PersonFields.h>
#include <desktop/texts/Texts.h>
#include <platform/qt/QtConvert.h>
#include <platform/text/SystemLocale.h>

namespace orvo::desktop {
namespace {

constexpr int kAddressLines = 3;
constexpr int kAddressNoteLines = 5;
// In characters.
constexpr int kPhoneWidth = 22;
constexpr int kPhoneLabelLength = 8;

struct LineRow {
    AddressField field;
    const char* objectName;
    const char* label;
};
struct NameRow {
    LineRow line;
    LineRow reading;  // of which the label is only heard
};
constexpr NameRow kNames[] = {
    {{AddressField::Name, "name", Untranslated("Last na&me:")},
     {AddressField::NameYomi, "nameReading", Untranslated("Reading of the name")}},
    {{AddressField::First, "first", Untranslated("&First name:")},
     {AddressField::FirstYomi, "firstReading", Untranslated("Reading of the first name")}},
    {{AddressField::Company, "company", Untranslated("C&ompany:")},
     {AddressField::CompanyYomi, "companyReading", Untranslated("Reading of the company")}},
};
constexpr LineRow kTitle{AddressField::Title, "title", Untranslated("Job &title:")};
constexpr LineRow kPlaces[] = {
    {AddressField::City, "city", Untranslated("C&ity:")},
    {AddressField::State, "state", Untranslated("Stat&e:")},
    {AddressField::ZipCode, "zipCode", Untranslated("&ZIP code:")},
    {AddressField::Country, "country", Untranslated("Co&untry:")},
};

// What the user has named himself has no mnemonic.
QString Plain(const CString& label) {
    return ToQt(label.View()).replace('&', QLatin1String("&&"));
}

// Between two groups of fields.
void AddGap(QVBoxLayout& column) {
    column.addSpacing(QFontMetrics(QApplication::font()).height() / 2);
}

class AddressForm {
public:
    AddressForm(CAddressTable& table, CAddressRecord& record)
        : m_table(table), m_record(record), m_saver(table, record) {}

    bool Run(QWidget* parent, FormKeeper* keeper) {
        const QString title = m_record.GetId() == 0 ? Text("New address") : Text("Edit address");
        if (const SaveResult read = m_saver.Load(); read.status != StoreStatus::Ok) {
            TellUnreadable(parent, title, read);
            return false;
        }
        if (const long status = m_person.Read(m_record); status != 0) {
            TellUnreadable(parent, title, {static_cast<StoreStatus>(status), m_table.LastError()});
            return false;
        }
        FormDialog dialog(parent, title, m_saver);
        dialog.KeepIn(keeper, {false, m_record.GetId(), m_record.IsPrivate() != 0, {}, {}});
        dialog.SetQuestion([this] { return m_person.Check(); });
        m_person.AddPhoto(dialog.Column());
        dialog.AddColumns(MakeLeft(), MakeRight());
        AddNote(dialog.Column());
        m_saver.Add([this] { return m_person.IsChanged(); },
                    [this](CAddressRecord& record) { return m_person.Write(record, m_table); });
        dialog.findChild<QWidget*>("name")->setFocus();
        return dialog.Run();
    }

private:
    QLayout* MakeLeft();
    QLayout* MakeRight();
    void AddNames(QVBoxLayout& column);
    void AddPhones(QVBoxLayout& column);
    void AddPhone(QGridLayout& grid, long slot, QButtonGroup& shown);
    void AddMarks(QVBoxLayout& column);
    void AddAddress(QVBoxLayout& column);
    void AddCustoms(QVBoxLayout& column);
    void AddNote(QVBoxLayout& column);
    void AddLine(QGridLayout& grid, const LineRow& line);
    LineField* MakeLine(AddressField field, const QString& objectName);
    ChoiceField* MakePhoneLabel(long slot);
    bool HasReadings() const;

    CAddressTable& m_table;
    CAddressRecord& m_record;
    RecordSaver<CAddressTable, CAddressRecord> m_saver;
    PersonFields m_person;
};

QLayout* AddressForm::MakeLeft() {
    auto* column = new QVBoxLayout;
    AddNames(*column);
    AddPhones(*column);
    for (const DetailKind kind :
         {DetailKind::Phone, DetailKind::Email, DetailKind::Messenger, DetailKind::Page}) {
        m_person.AddSection(kind, *column);
    }
    AddMarks(*column);
    column->addStretch();
    return column;
}

QLayout* AddressForm::MakeRight() {
    auto* column = new QVBoxLayout;
    AddAddress(*column);
    for (const DetailKind kind : {DetailKind::Address, DetailKind::Date, DetailKind::Relation}) {
        m_person.AddSection(kind, *column);
    }
    AddCustoms(*column);
    column->addStretch();
    return column;
}

LineField* AddressForm::MakeLine(AddressField field, const QString& objectName) {
    auto* line = new LineField(m_record.Utf8(field));
    line->setObjectName(objectName);
    m_saver.Add(
        [line] { return line->IsChanged(); },
        [line, field](CAddressRecord& record) { return record.SetUtf8(field, line->Utf8()); });
    return line;
}

void AddressForm::AddLine(QGridLayout& grid, const LineRow& line) {
    LineField* field = MakeLine(line.field, line.objectName);
    const int row = grid.rowCount();
    grid.addWidget(MakeLabel(Text(line.label), *field), row, 0);
    grid.addWidget(field, row, 1, 1, -1);
}

bool AddressForm::HasReadings() const {
    if (SystemLocale::Language() == "ja") return true;
    for (const NameRow& row : kNames) {
        if (!m_record.Utf8(row.reading.field).empty()) return true;
    }
    return false;
}

void AddressForm::AddNames(QVBoxLayout& column) {
    column.addWidget(MakeHeading(Text("Name")));
    auto* grid = new QGridLayout;
    column.addLayout(grid);
    const bool hasReadings = HasReadings();
    if (hasReadings) grid->addWidget(new QLabel(Text("Reading")), 0, 2);
    for (const NameRow& names : kNames) {
        const int row = grid->rowCount();
        LineField* line = MakeLine(names.line.field, names.line.objectName);
        grid->addWidget(MakeLabel(Text(names.line.label), *line), row, 0);
        grid->addWidget(line, row, 1);
        if (!hasReadings) continue;
        LineField* reading = MakeLine(names.reading.field, names.reading.objectName);
        reading->setAccessibleName(Text(names.reading.label));
        grid->addWidget(reading, row, 2);
    }
    AddLine(*grid, kTitle);
    m_person.AddTexts(column);
}

void AddressForm::AddPhones(QVBoxLayout& column) {
    AddGap(column);
    column.addWidget(MakeHeading(Text("Phone numbers and e-mail")));
    auto* grid = new QGridLayout;
    column.addLayout(grid);
    grid->setColumnStretch(1, 1);
    grid->addWidget(new QLabel(Text("In lists")), 0, 2);
    auto* shown = new QButtonGroup(grid);
    for (long slot = 1; slot <= kPhoneSlots; ++slot) AddPhone(*grid, slot, *shown);
    long given = 1;
    m_record.GetDisplayPhone(given);
    shown->button(static_cast<int>(given))->setChecked(true);
    m_saver.Add(
        [shown, given] { return shown->checkedId() != given; },
        [shown](CAddressRecord& record) { return record.SetDisplayPhone(shown->checkedId()); });
}

void AddressForm::AddPhone(QGridLayout& grid, long slot, QButtonGroup& shown) {
    const int number = static_cast<int>(slot);
    ChoiceField* label = MakePhoneLabel(slot);
    LineField* line = MakeLine(PhoneField(slot), QString("phone%1").arg(number));
    line->setAccessibleName(Text("Number %1").arg(number));
    line->setMinimumWidth(line->fontMetrics().averageCharWidth() * kPhoneWidth);
    auto* inLists = new QRadioButton;
    inLists->setObjectName(QString("shown%1").arg(number));
    inLists->setToolTip(Text("Show this one in lists"));
    inLists->setAccessibleName(Text("Show number %1 in lists").arg(number));
    shown.addButton(inLists, number);
    grid.addWidget(MakeSpokenLabel(Text("Label of number %1").arg(number), *label), number, 0);
    grid.addWidget(label, number, 0);
    grid.addWidget(line, number, 1);
    grid.addWidget(inLists, number, 2, Qt::AlignCenter);
}

ChoiceField* AddressForm::MakePhoneLabel(long slot) {
    auto* label = new ChoiceField;
    label->setObjectName(QString("label%1").arg(slot));
    label->setMinimumContentsLength(kPhoneLabelLength);
    for (int id = 0; id < m_table.GetPhoneLabelCount(); ++id) {
        if (m_table.GetPhoneLabel(id).IsEmpty()) continue;  // it was removed
        label->addItem(ToQt(m_table.GetPhoneLabel(id).View()), id);
    }
    long given = 0;
    m_record.GetPhoneLabelID(slot, given);
    label->Give(static_cast<int>(given), Text("Label %1").arg(given));
    m_saver.Add([label] { return label->IsChanged(); },
                [label, slot](CAddressRecord& record) {
                    return record.SetPhoneLabelID(slot, label->Number());
                });
    return label;
}

void AddressForm::AddMarks(QVBoxLayout& column) {
    AddGap(column);
    ChoiceField* category = MakeCategoryField(m_table, m_record);
    m_saver.Add(
        [category] { return category->IsChanged(); },
        [category](CAddressRecord& record) { return record.SetCategoryId(category->Number()); });
    auto* isPrivate = new MarkField(Text("&Private"), m_record.IsPrivate() != 0);
    isPrivate->setObjectName("private");
    m_saver.Add([isPrivate] { return isPrivate->IsChanged(); },
                [isPrivate](CAddressRecord& record) {
                    return record.SetPrivate(isPrivate->isChecked() ? 1 : 0);
                });
    auto* row = new QHBoxLayout;
    row->addWidget(MakeLabel(Text("Cate&gory:"), *category));
    row->addWidget(category, 1);
    row->addWidget(isPrivate);
    column.addLayout(row);
}

void AddressForm::AddAddress(QVBoxLayout& column) {
    column.addWidget(MakeHeading(Text("Address")));
    auto* grid = new QGridLayout;
    column.addLayout(grid);
    auto* street = new TextField(m_record.Utf8(AddressField::Address), kAddressLines);
    street->setObjectName("address");
    street->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_saver.Add([street] { return street->IsChanged(); },
                [street](CAddressRecord& record) {
                    return record.SetUtf8(AddressField::Address, street->Utf8());
                });
    grid->addWidget(MakeLabel(Text("&Address:"), *street), 0, 0, Qt::AlignTop);
    grid->addWidget(street, 0, 1);
    for (const LineRow& line : kPlaces) AddLine(*grid, line);
}

void AddressForm::AddCustoms(QVBoxLayout& column) {
    AddGap(column);
    column.addWidget(MakeHeading(Text("More fields")));
    auto* grid = new QGridLayout;
    column.addLayout(grid);
    for (int number = 1; number <= kCustomFields; ++number) {
        LineField* line = MakeLine(CustomField(number), QString("custom%1").arg(number));
        const CString label = m_table.GetCustomLabel(number);
        const QString name = label.IsEmpty() ? Text("Field %1").arg(number) : Plain(label);
        grid->addWidget(MakeLabel(name, *line), number, 0);
        grid->addWidget(line, number, 1);
    }
}

void AddressForm::AddNote(QVBoxLayout& column) {
    auto* note = new TextField(m_saver.Note(), kAddressNoteLines);
    note->setObjectName("note");
    m_saver.Add([note] { return note->IsChanged(); },
                [note](CAddressRecord& record) { return record.SetNoteUtf8(note->Utf8()); });
    AddGap(column);
    QLabel* label = MakeLabel(Text("&Note"), *note);
    label->setFont(MakeBold(label->font()));
    column.addWidget(label);
    column.addWidget(note, 1);
}

}  // namespace

bool EditAddress(QWidget* parent, CAddressTable& table, CAddressRecord& record,
                 FormKeeper* keeper) {
    return AddressForm(table, record).Run(parent, keeper);
}

}  // namespace orvo::desktop
