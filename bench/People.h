// Made-up people for the benchmarks: the same ones at each run.
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <contracts/RecordStore.h>
#include <libraries/quire/SqliteEngine.h>

namespace orvo::bench {

// A typical contact: name, first name, company, two phones, one mail address, one address. All
// UTF-8.
struct Person {
    std::string name;
    std::string first;
    std::string company;
    std::string nameYomi;  // Japanese people only, as the next one
    std::string firstYomi;
    std::string phone1;
    std::string phone2;
    std::string mail;
    std::string street;
    std::string city;
    std::string zip;
};

enum class Script { Latin, Japanese };

std::vector<Person> MakePeople(std::size_t count, Script script);

// The person as a vCard 3.0.
std::string CardOf(const Person& person);

// A new record with the person's fields.
std::unique_ptr<CAddressRecord> RecordOf(const Person& person, CAddressTable& table);

// A store file that is removed at the end.
class ScratchStore {
public:
    ScratchStore();
    ScratchStore(const ScratchStore&) = delete;
    ScratchStore& operator=(const ScratchStore&) = delete;
    ~ScratchStore();

    const std::string& Path() const { return m_path; }
    SqliteEngine& Engine() { return *m_engine; }

    // From now on the file is other processes' alone.
    void Close() { m_engine.reset(); }

private:
    std::string m_folder;
    std::string m_path;
    std::unique_ptr<SqliteEngine> m_engine;
};

}  // namespace orvo::bench
