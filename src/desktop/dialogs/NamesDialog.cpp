// The dialog in which the user adds, renames and removes categories and labels.
// SPDX-License-Identifier: MIT
#include <QDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <functional>

#include <desktop/dialogs/NamesDialog.h>
#include <desktop/store/NameChanges.h>
#include <desktop/texts/Texts.h>
#include <platform/qt/QtConvert.h>

namespace orvo::desktop {
namespace {

constexpr QSize kNamesSize{520, 380};

struct Name {
    int number;
    QString text;
    bool isFixed = false;  // it can neither be renamed nor removed
};

// What can be done with the names of a page; each operation returns what is wrong.
struct NameRules {
    std::function<std::vector<Name>()> read;
    std::function<QString(const QString& name)> add;  // null where names can't be added
    std::function<QString(int number, const QString& name)> rename;
    std::function<QString(int number)> remove;  // null where names can't be removed
    QString question;                           // before a removal; %1 is the name
};

class NamesPage : public QWidget {
public:
    explicit NamesPage(NameRules rules) : m_rules(std::move(rules)) {
        auto* line = new QHBoxLayout(this);
        line->addWidget(&m_list, 1);
        auto* buttons = new QVBoxLayout;
        line->addLayout(buttons);
        if (m_rules.add) AddButton(*buttons, Text("&Add..."), [this] { Add(); });
        m_rename = AddButton(*buttons, Text("&Rename..."), [this] { Rename(); });
        if (m_rules.remove) m_remove = AddButton(*buttons, Text("Re&move"), [this] { Remove(); });
        buttons->addStretch();
        connect(&m_list, &QListWidget::currentRowChanged, this, [this] { ShowState(); });
        connect(&m_list, &QListWidget::itemDoubleClicked, this, [this] { Rename(); });
        Read();
    }

private:
    QPushButton* AddButton(QVBoxLayout& column, const QString& text,
                           const std::function<void()>& press) {
        auto* button = new QPushButton(text);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [press] { press(); });
        column.addWidget(button);
        return button;
    }

    void Read() {
        const int row = std::max(0, m_list.currentRow());
        m_list.clear();
        m_names = m_rules.read();
        for (const Name& name : m_names) m_list.addItem(name.text);
        m_list.setCurrentRow(std::min(row, m_list.count() - 1));
        ShowState();
    }

    const Name* Current() const {
        const int row = m_list.currentRow();
        return row < 0 || row >= static_cast<int>(m_names.size())
                   ? nullptr
                   : &m_names[static_cast<std::size_t>(row)];
    }

    void ShowState() {
        const Name* current = Current();
        const bool isFree = current && !current->isFixed;
        m_rename->setEnabled(isFree);
        if (m_remove) m_remove->setEnabled(isFree);
    }

    // Asks until the name is taken or the user gives up; what was typed stays.
    void Ask(const QString& title, QString name,
             const std::function<QString(const QString&)>& change) {
        bool isGiven = true;
        while (isGiven) {
            name = QInputDialog::getText(this, title, Text("Name:"), QLineEdit::Normal, name,
                                         &isGiven);
            if (!isGiven) return;
            const QString wrong = change(name);
            if (wrong.isEmpty()) break;
            QMessageBox::warning(this, title, wrong);
        }
        Read();
    }

    void Add() { Ask(Text("Add a name"), {}, m_rules.add); }

    void Rename() {
        const Name* current = Current();
        if (!current || current->isFixed) return;
        const int number = current->number;
        Ask(Text("Rename"), current->text,
            [this, number](const QString& name) { return m_rules.rename(number, name); });
    }

    void Remove() {
        const Name* current = Current();
        if (!current) return;
        if (QMessageBox::question(this, Text("Remove"), m_rules.question.arg(current->text)) !=
            QMessageBox::Yes) {
            return;
        }
        const QString wrong = m_rules.remove(current->number);
        if (!wrong.isEmpty()) QMessageBox::warning(this, Text("Remove"), wrong);
        Read();
    }

    NameRules m_rules;
    std::vector<Name> m_names;
    QListWidget m_list;
    QPushButton* m_rename = nullptr;  // Qt's
    QPushButton* m_remove = nullptr;
};

NameRules CategoryRules(StoreSession& session, CBaseTable& table) {
    return {
        [&table] {
            std::vector<Name> names;
            CCategory* category = nullptr;
            CCategoryMgr& manager = *table.GetCategoryManager();
            for (manager.FindFirst(category); category; manager.FindNext(category)) {
                names.push_back({category->GetIndex(), FromUtf8(category->ShownUtf8()),
                                 category->GetIndex() == kNoCategory});
            }
            return names;
        },
        [&](const QString& name) { return AddCategory(session, table, name); },
        [&](int index, const QString& name) { return RenameCategory(session, table, index, name); },
        [&](int index) { return RemoveCategory(session, table, index); },
        Text("Remove the category \"%1\"? Its entries stay, without a category.")};
}

std::vector<Name> Labels(const CAddressTable& table) {
    std::vector<Name> names;
    for (int label = 0; label < table.GetPhoneLabelCount(); ++label) {
        const QString text = ToQt(table.GetPhoneLabel(label).View());
        if (!text.isEmpty()) names.push_back({label, text});
    }
    return names;
}

// The one that the numbers of a label get when it is removed: the last of the others.
int LabelInstead(const CAddressTable& table, int label) {
    int other = -1;
    for (const Name& name : Labels(table)) {
        if (name.number != label) other = name.number;
    }
    return other;
}

NameRules LabelRules(StoreSession& session) {
    CAddressTable& table = session.Addresses();
    return {
        [&table] { return Labels(table); },
        [&session](const QString& name) { return AddLabel(session, name); },
        [&session](int label, const QString& name) { return RenameLabel(session, label, name); },
        [&session, &table](int label) {
            const int other = LabelInstead(table, label);
            return other < 0 ? Text("The last label can't be removed.")
                             : RemoveLabel(session, label, other);
        },
        Text("Remove the label \"%1\"? Numbers that have it get the last of the others.")};
}

NameRules FieldRules(StoreSession& session) {
    const CAddressTable& table = session.Addresses();
    return {[&table] {
                std::vector<Name> names;
                for (int number = 1; number <= kCustomFields; ++number) {
                    names.push_back({number, ToQt(table.GetCustomLabel(number).View())});
                }
                return names;
            },
            nullptr,
            [&session](int number, const QString& name) {
                return RenameCustomField(session, number, name);
            },
            nullptr,
            {}};
}

}  // namespace

void EditNames(QWidget* parent, StoreSession& session) {
    QDialog dialog(parent);
    dialog.setWindowTitle(Text("Categories and labels"));
    auto* tabs = new QTabWidget;
    tabs->addTab(new NamesPage(CategoryRules(session, session.Addresses())),
                 Text("Categories of addresses"));
    tabs->addTab(new NamesPage(CategoryRules(session, session.ToDos())),
                 Text("Categories of to-dos"));
    tabs->addTab(new NamesPage(LabelRules(session)), Text("Labels of numbers"));
    tabs->addTab(new NamesPage(FieldRules(session)), Text("More fields"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* column = new QVBoxLayout(&dialog);
    column->addWidget(tabs);
    column->addWidget(buttons);
    // Wide enough for the names of all pages, which Qt would hide behind arrows.
    const QMargins edges = column->contentsMargins();
    const int wanted = tabs->tabBar()->sizeHint().width() + edges.left() + edges.right();
    dialog.resize(kNamesSize.expandedTo({wanted, 0}));
    dialog.exec();
}

}  // namespace orvo::desktop
