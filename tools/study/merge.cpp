#include "study/merge.hpp"

#include "platform/paths.hpp"
#include "study/digest.hpp"
#include "study/journal.hpp"

#include <algorithm>
#include <memory>
#include <tuple>

namespace korvat::study {
namespace {

// Where a record stands; names are told apart by their hashes first.
struct Entry {
    std::uint64_t hash = 0;
    std::uint64_t position = 0;
    std::uint64_t offset = 0;
    std::uint32_t journal = 0;
    bool is_taken = false;
};

// "cases/1" and "./cases//1/" are one case.
std::string plain_name(const std::string& name) {
    std::string plain = platform::name_of(platform::path_of(name).lexically_normal());
    while (plain.size() > 1 && plain.ends_with('/'))
        plain.pop_back();
    return plain;
}

class Journals {
public:
    explicit Journals(const std::vector<std::string>& names) {
        for (const std::string& name : names)
            readers_.push_back(std::make_unique<JournalReader>(name));
        for (std::uint32_t i = 0; i < readers_.size(); ++i) {
            damaged_ += readers_[i]
                            ->scan([&](std::uint64_t offset, CaseRecord&& record) {
                                entries_.push_back({short_digest(plain_name(record.name)),
                                                    record.position, offset, i, false});
                                add_columns(record.parameters);
                            })
                            .damaged;
        }
        keep_last();
    }

    [[nodiscard]] std::uint64_t damaged() const { return damaged_; }
    [[nodiscard]] const std::vector<std::string>& columns() const { return columns_; }
    [[nodiscard]] std::vector<Entry>& entries() { return entries_; }

    [[nodiscard]] CaseRecord record(const Entry& entry) {
        return readers_[entry.journal]->at(entry.offset);
    }

    // The entry of a case; none where no journal has it.
    [[nodiscard]] Entry* find(const std::string& name) {
        const std::string plain = plain_name(name);
        const std::uint64_t hash = short_digest(plain);
        auto entry = std::ranges::lower_bound(entries_, hash, {}, &Entry::hash);
        for (; entry != entries_.end() && entry->hash == hash; ++entry) {
            if (plain_name(record(*entry).name) == plain) return &*entry;
        }
        return nullptr;
    }

private:
    void add_columns(const Parameters& parameters) {
        for (const auto& [name, value] : parameters) {
            if (std::ranges::find(columns_, name) == columns_.end()) columns_.push_back(name);
        }
    }

    // Of the entries of each case only the last one. Cases whose names have one hash are not taken for one another.
    void keep_last() {
        std::ranges::stable_sort(entries_, {}, &Entry::hash);
        std::vector<Entry> kept;
        for (auto first = entries_.begin(); first != entries_.end();) {
            const auto end = std::ranges::find_if(first, entries_.end(), [&](const Entry& entry) {
                return entry.hash != first->hash;
            });
            const bool is_single = end - first == 1;
            if (is_single) {
                kept.push_back(*first);
            } else {
                keep_last_of(first, end, kept);
            }
            first = end;
        }
        entries_ = std::move(kept);
    }

    void keep_last_of(std::vector<Entry>::iterator first, std::vector<Entry>::iterator end,
                      std::vector<Entry>& kept) {
        std::vector<std::string> names;
        for (auto entry = end; entry != first;) {
            --entry;
            std::string name = plain_name(record(*entry).name);
            if (std::ranges::find(names, name) != names.end()) continue;
            names.push_back(std::move(name));
            kept.push_back(*entry);
        }
    }

    std::vector<std::unique_ptr<JournalReader>> readers_;
    std::vector<Entry> entries_; // by their hashes
    std::vector<std::string> columns_;
    std::uint64_t damaged_ = 0;
};

void count(MergeOutcome& outcome, const CaseRecord& record) {
    ++outcome.cases;
    if (record.state != CaseState::fine) ++outcome.failed;
}

MergeOutcome by_positions(Journals& journals, std::ostream& out, SummaryFormat format) {
    MergeOutcome outcome;
    std::vector<Entry>& entries = journals.entries();
    std::ranges::sort(entries, {}, [](const Entry& entry) {
        return std::tuple(entry.position, entry.journal, entry.offset);
    });
    SummaryWriter summary(out, format, journals.columns());
    std::uint64_t positions = 0;
    for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
        const bool is_new = entry == entries.begin() || entry->position != (entry - 1)->position;
        if (is_new) ++positions;
        const CaseRecord record = journals.record(*entry);
        count(outcome, record);
        summary.add(record);
    }
    summary.finish();
    if (!entries.empty()) outcome.missing = entries.back().position + 1 - positions;
    return outcome;
}

// The columns of a list are known when it has been read.
std::vector<std::string> columns_of(const CaseNames& names, std::istream& input) {
    CaseList list(names, input);
    while (list.next()) {
    }
    return list.columns();
}

MergeOutcome by_list(Journals& journals, const CaseNames& names, std::istream& input,
                     std::ostream& out, SummaryFormat format) {
    MergeOutcome outcome;
    const bool is_input = names.list == "-"; // its manifest alone has columns, at its beginning
    CaseList list(names, input);
    auto given = list.next();
    SummaryWriter summary(out, format, is_input ? list.columns() : columns_of(names, input));
    for (std::uint64_t position = 0; given; given = list.next(), ++position) {
        Entry* entry = journals.find(given->name);
        if (entry == nullptr) entry = journals.find(given->directory);
        CaseRecord record;
        if (entry != nullptr) {
            record = journals.record(*entry);
            entry->is_taken = true;
        } else {
            ++outcome.missing;
            record.error = "it is in no journal";
        }
        record.name = given->name;
        record.position = position;
        if (!given->parameters.empty()) record.parameters = std::move(given->parameters);
        count(outcome, record);
        summary.add(record);
    }
    summary.finish();
    outcome.unlisted =
        static_cast<std::uint64_t>(std::ranges::count(journals.entries(), false, &Entry::is_taken));
    return outcome;
}

} // namespace

MergeOutcome merge(const std::vector<std::string>& names, const std::optional<CaseNames>& list,
                   std::istream& input, std::ostream& out, SummaryFormat format) {
    Journals journals(names);
    MergeOutcome outcome =
        list ? by_list(journals, *list, input, out, format) : by_positions(journals, out, format);
    outcome.damaged = journals.damaged();
    return outcome;
}

} // namespace korvat::study
