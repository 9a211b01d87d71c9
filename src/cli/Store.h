// The store that a command works on.
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include <cli/CommandError.h>
#include <cli/PrivateGuard.h>
#include <contracts/RecordStore.h>
#include <libraries/quire/SqliteEngine.h>
#include <orvoshare/shared/DataSetClaim.h>

namespace orvo::cli {

// An open store with its tables, and what may be revealed of the private entries in it.
class Store {
public:
    // Opens or creates the store; an empty path stands for the user's own store, whose folder is
    // then made.
    // Requires: the guard outlives the store.
    // Fails:    CommandError.
    Store(const std::string& path, PrivateGuard& guard);

    CAddressTable& Addresses() { return m_addresses; }
    CToDoTable& ToDos() { return m_toDos; }
    StoreEngine& Engine() { return *m_engine; }
    PrivateGuard& Guard() { return m_guard; }
    std::string Path() const { return m_engine->Name(); }

    // Why categories and labels are in part those of a new store; else empty.
    std::string TextsFailure() const;

    // Fails:    CommandError where `status` isn't 0.
    void Check(long status);

private:
    PrivateGuard& m_guard;
    std::unique_ptr<SqliteEngine> m_engine;
    CAddressTable m_addresses;
    CToDoTable m_toDos;
};

// The stored address of that id.
// Fails:    CommandError, nothing found, also for a deleted one.
std::unique_ptr<CAddressRecord> FindAddress(Store& store, std::int64_t id);

// The program's place among those that have the store open, while it changes something. It waits
// two seconds for a program that has the store to itself; the desktop application doesn't.
class WriteClaim {
public:
    // Before the first change of a day the store is backed up, where the user wants that.
    // Fails:    CommandError that says who has the store.
    explicit WriteClaim(Store& store);
    // The same for a store that isn't open.
    explicit WriteClaim(const std::string& path);

private:
    DataSetClaim m_claim;
};

// One change of the store, which begins with the categories and labels as they are then. Without
// Commit nothing of it stays.
class Transaction {
public:
    // Fails:    CommandError, here and in Commit.
    explicit Transaction(Store& store);
    void Commit();

private:
    WriteClaim m_claim;
    Store& m_store;
    StoreTransaction m_transaction;
};

}  // namespace orvo::cli
