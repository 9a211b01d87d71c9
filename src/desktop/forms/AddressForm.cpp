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
#include <desktop/forms/PersonFields.h>
#include <desktop/forms/SavedFields.h>
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
        AddPerson();
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
    LineField* MakeLine(AddressField field, const QString& objectName, const QString& label);
    void AddShownPhone(QButtonGroup& shown);
    void AddPerson();
    ChoiceField* MakePhoneLabel(long slot);
    bool HasReadings() const;

    CAddressTable& m_table;
    CAddressRecord& m_record;
    RecordSaver<CAddressTable, CAddressRecord> m_saver;
    PersonFields m_person;
    int m_given = 1;  // the number that lists show
};

// The card is written in one, what it says is shown part by part.
void AddressForm::AddPerson() {
    m_saver.SetReader([this](CAddressRecord& record) { return m_person.ReadAgain(record); });
    for (PersonFields::Part& part : m_person.Parts()) {
        m_saver.Add({part.label, part.field, part.isChanged, [](CAddressRecord&) { return 0L; },
                     [textOf = part.textOf](CAddressRecord&) { return textOf(); }, part.mine,
                     [give = part.give](CAddressRecord&, bool keepsMine) { give(keepsMine); }});
    }
    m_saver.Add({{},
                 nullptr,
                 [this] { return m_person.IsChanged(); },
                 [this](CAddressRecord& record) { return m_person.Write(record, m_table); },
                 [](CAddressRecord&) { return QString(); },
                 [] { return QString(); },
                 [](CAddressRecord&, bool) {}});
}

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

LineField* AddressForm::MakeLine(AddressField field, const QString& objectName,
                                 const QString& label) {
    auto* line = new LineField(m_record.Utf8(field));
    line->setObjectName(objectName);
    m_saver.Add(
        {PlainLabel(label), line, [line] { return line->IsChanged(); },
         [line, field](CAddressRecord& record) { return record.SetUtf8(field, line->Utf8()); },
         [field](CAddressRecord& record) { return FromUtf8(record.Utf8(field)); },
         [line] { return line->text(); },
         [line, field](CAddressRecord& record, bool keepsMine) {
             line->Give(record.Utf8(field), keepsMine);
         }});
    return line;
}

void AddressForm::AddLine(QGridLayout& grid, const LineRow& line) {
    LineField* field = MakeLine(line.field, line.objectName, Text(line.label));
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
        LineField* line = MakeLine(names.line.field, names.line.objectName, Text(names.line.label));
        grid->addWidget(MakeLabel(Text(names.line.label), *line), row, 0);
        grid->addWidget(line, row, 1);
        if (!hasReadings) continue;
        LineField* reading =
            MakeLine(names.reading.field, names.reading.objectName, Text(names.reading.label));
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
    AddShownPhone(*shown);
}

void AddressForm::AddShownPhone(QButtonGroup& group) {
    const auto slotOf = [](const CAddressRecord& record) {
        long slot = 1;
        record.GetDisplayPhone(slot);
        return static_cast<int>(slot);
    };
    QButtonGroup* shown = &group;
    shown->button(slotOf(m_record))->setChecked(true);
    m_saver.Add({Text("In lists"), shown->button(1),
                 [=, this] { return shown->checkedId() != m_given; },
                 [=](CAddressRecord& record) { return record.SetDisplayPhone(shown->checkedId()); },
                 [=](CAddressRecord& record) { return Text("Number %1").arg(slotOf(record)); },
                 [=] { return Text("Number %1").arg(shown->checkedId()); },
                 [=, this](CAddressRecord& record, bool keepsMine) {
                     m_given = slotOf(record);
                     if (!keepsMine) shown->button(m_given)->setChecked(true);
                 }});
    m_given = shown->checkedId();
}

void AddressForm::AddPhone(QGridLayout& grid, long slot, QButtonGroup& shown) {
    const int number = static_cast<int>(slot);
    ChoiceField* label = MakePhoneLabel(slot);
    LineField* line =
        MakeLine(PhoneField(slot), QString("phone%1").arg(number), Text("Number %1").arg(number));
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
    AddChoice(
        m_saver, Text("Label of number %1").arg(slot), *label,
        [slot](CAddressRecord& record) {
            long id = 0;
            record.GetPhoneLabelID(slot, id);
            return static_cast<int>(id);
        },
        [slot](CAddressRecord& record, int id) { return record.SetPhoneLabelID(slot, id); });
    return label;
}

void AddressForm::AddMarks(QVBoxLayout& column) {
    AddGap(column);
    ChoiceField* category = MakeCategoryField(m_table, m_record);
    AddChoice(m_saver, PlainLabel(Text("Cate&gory:")), *category, CategoryOf<CAddressRecord>,
              [](CAddressRecord& record, int number) { return record.SetCategoryId(number); });
    auto* isPrivate = new MarkField(Text("&Private"), m_record.IsPrivate() != 0);
    isPrivate->setObjectName("private");
    AddPrivateMark(m_saver, *isPrivate);
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
    constexpr AddressField kField = AddressField::Address;
    m_saver.Add(
        {PlainLabel(Text("&Address:")), street, [street] { return street->IsChanged(); },
         [street](CAddressRecord& record) { return record.SetUtf8(kField, street->Utf8()); },
         [](CAddressRecord& record) { return LinesOf(record.Utf8(kField)); },
         [street] { return street->Shown(); },
         [street](CAddressRecord& record, bool keepsMine) {
             street->Give(record.Utf8(kField), keepsMine);
         }});
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
        const CString label = m_table.GetCustomLabel(number);
        const QString name = label.IsEmpty() ? Text("Field %1").arg(number) : Plain(label);
        LineField* line = MakeLine(CustomField(number), QString("custom%1").arg(number), name);
        grid->addWidget(MakeLabel(name, *line), number, 0);
        grid->addWidget(line, number, 1);
    }
}

void AddressForm::AddNote(QVBoxLayout& column) {
    auto* note = new TextField(m_saver.Note(), kAddressNoteLines);
    note->setObjectName("note");
    AddNoteText(m_saver, PlainLabel(Text("&Note")), *note);
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
