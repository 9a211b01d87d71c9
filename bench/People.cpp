// Made-up people for the benchmarks: the same ones at each run.
// SPDX-License-Identifier: MIT
#include "People.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include <fmt/format.h>

namespace orvo::bench {
namespace {

struct Reading {
    const char* text;
    const char* kana;
};

constexpr std::array<const char*, 24> kLatinStarts{
    "An", "Bar", "Cor", "Dan", "El",  "Fre", "Gar", "Hol", "Is",  "Jo", "Ka",  "Lin",
    "Mc", "Nor", "O'",  "Pe",  "Qui", "Ro",  "Smi", "Tho", "Und", "Vé", "Wil", "Zö"};
constexpr std::array<const char*, 20> kLatinEnds{
    "a",   "bert", "cott",  "dell", "ers", "field", "ger",   "ham",  "ine",  "ley",
    "man", "nard", "olsen", "rick", "son", "ton",   "ville", "wood", "yard", "zález"};
constexpr std::array<Reading, 40> kKanji{
    {{"山", "やま"}, {"田", "た"},   {"佐", "さ"},   {"藤", "とう"},   {"鈴", "すず"},
     {"木", "き"},   {"高", "たか"}, {"橋", "はし"}, {"渡", "わた"},   {"辺", "なべ"},
     {"中", "なか"}, {"村", "むら"}, {"小", "こ"},   {"林", "ばやし"}, {"加", "か"},
     {"本", "もと"}, {"石", "いし"}, {"川", "かわ"}, {"上", "うえ"},   {"野", "の"},
     {"島", "しま"}, {"原", "はら"}, {"松", "まつ"}, {"井", "い"},     {"清", "しみ"},
     {"水", "ず"},   {"森", "もり"}, {"池", "いけ"}, {"阿", "あ"},     {"部", "べ"},
     {"岡", "おか"}, {"前", "まえ"}, {"長", "なが"}, {"谷", "たに"},   {"近", "こん"},
     {"坂", "さか"}, {"遠", "えん"}, {"青", "あお"}, {"西", "にし"},   {"福", "ふく"}}};

class Maker {
public:
    explicit Maker(Script script) : m_script(script) {}

    Person Make() {
        Person person;
        if (m_script == Script::Latin) {
            person.name = LatinWord();
            person.first = LatinWord();
        } else {
            JapaneseWord(person.name, person.nameYomi);
            JapaneseWord(person.first, person.firstYomi);
        }
        person.company = LatinWord() + " " + LatinWord() + " Ltd.";
        person.phone1 = fmt::format("+1 617 555 {:04}", Number(10000));
        person.phone2 = fmt::format("+1 781 555 {:04}", Number(10000));
        person.mail = fmt::format("person{}@example.com", Number(1000000));
        person.street = fmt::format("{} {} Street", Number(900) + 1, LatinWord());
        person.city = LatinWord();
        person.zip = fmt::format("{:05}", Number(100000));
        return person;
    }

private:
    unsigned Number(unsigned below) { return static_cast<unsigned>(m_random() % below); }

    std::string LatinWord() {
        std::string word = kLatinStarts[Number(kLatinStarts.size())];
        word += kLatinEnds[Number(kLatinEnds.size())];
        return word + kLatinEnds[Number(kLatinEnds.size())];
    }

    void JapaneseWord(std::string& text, std::string& kana) {
        for (int i = 0; i < 2; ++i) {
            const Reading& reading = kKanji[Number(kKanji.size())];
            text += reading.text;
            kana += reading.kana;
        }
    }

    Script m_script;
    std::mt19937 m_random{20261124};
};

}  // namespace

std::vector<Person> MakePeople(std::size_t count, Script script) {
    Maker maker(script);
    std::vector<Person> people;
    people.reserve(count);
    while (people.size() < count) people.push_back(maker.Make());
    return people;
}

std::string CardOf(const Person& person) {
    return fmt::format(
        "BEGIN:VCARD\r\nVERSION:3.0\r\nN:{0};{1};;;\r\nFN:{1} "
        "{0}\r\nORG:{2}\r\nTEL;TYPE=WORK:{3}\r\n"
        "TEL;TYPE=CELL:{4}\r\nEMAIL;TYPE=INTERNET:{5}\r\nADR;TYPE=WORK:;;{6};{7};;{8};\r\nEND:"
        "VCARD\r\n",
        person.name, person.first, person.company, person.phone1, person.phone2, person.mail,
        person.street, person.city, person.zip);
}

std::unique_ptr<CAddressRecord> RecordOf(const Person& person, CAddressTable& table) {
    using enum AddressField;
    auto record = std::make_unique<CAddressRecord>(table, 1);
    const std::pair<AddressField, const std::string&> texts[] = {{Name, person.name},
                                                                 {First, person.first},
                                                                 {Company, person.company},
                                                                 {NameYomi, person.nameYomi},
                                                                 {FirstYomi, person.firstYomi},
                                                                 {PhoneField(1), person.phone1},
                                                                 {PhoneField(2), person.phone2},
                                                                 {PhoneField(3), person.mail},
                                                                 {Address, person.street},
                                                                 {City, person.city},
                                                                 {ZipCode, person.zip}};
    for (const auto& [field, text] : texts) {
        if (record->SetUtf8(field, text) != 0) throw std::runtime_error("a field was refused");
    }
    return record;
}

ScratchStore::ScratchStore() {
    std::string folder = (std::filesystem::temp_directory_path() / "orvo-bench-XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr) throw std::runtime_error("no scratch folder");
    m_folder = folder;
    m_path = folder + "/orvo.db";
    std::string error;
    m_engine = SqliteEngine::Open(m_path, error);
    if (m_engine == nullptr) throw std::runtime_error(error);
}

ScratchStore::~ScratchStore() {
    m_engine.reset();
    std::error_code error;
    std::filesystem::remove_all(m_folder, error);
}

}  // namespace orvo::bench
