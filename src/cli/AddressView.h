// The address views with their lookup box, set up as a host does, without a screen.
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <cli/ViewHost.h>
#include <orvoshare/addresslist/DetailViewAddrList.h>
#include <orvoshare/addressviews/DetailViewAddrCard.h>
#include <orvoshare/addressviews/LookupEdit.h>

namespace CLI {
class App;
}

namespace orvo::cli {

struct ListOptions {
    std::string by = "name";
    std::string category;
    bool hidePrivate = false;
    bool maskPrivate = false;

    int ListBy() const { return static_cast<int>(by == "company" ? kListByCompany : kListByName); }
};

// Adds --by to the command line of a command that names rows, and the options of a command that
// lists them.
void AddOrderOption(CLI::App& command, ListOptions& options);
void AddListOptions(CLI::App& command, ListOptions& options);

// A window with a lookup box, in which one of the address views stands.
class AddressHost : public ViewHost {
public:
    CLookupEdit& Box() { return m_box; }

protected:
    explicit AddressHost(Store& store);

    // Connects the view, whose window stands, and fills it from the store.
    // Fails:    CommandError.
    void Fill(CDetailViewAddrInf& view, Store& store, const ListOptions& options);

    CLookupEdit m_box;
};

class AddressView : public AddressHost {
public:
    AddressView(Store& store, const ListOptions& options);

    CDetailViewAddrList& List() { return m_list; }

    // Fails:    CommandError, nothing found.
    CAddressRecord& RecordAt(int row);

private:
    CCategoryCombo m_categories;  // the list opens no menu of categories without it
    CDetailViewAddrList m_list;
};

class CardView : public AddressHost {
public:
    CardView(Store& store, const ListOptions& options);

    CDetailViewAddrCard& Cards() { return m_cards; }

private:
    CDetailViewAddrCard m_cards;
};

// Fails:    CommandError, nothing found, where the view has no such row.
void CheckRow(CDetailViewAddrInf& view, int row);

}  // namespace orvo::cli
