// Cases, programs and calls for the tests of batch and merge.
#pragma once

#include "../cli/command_call.hpp"
#include "study/case_record.hpp"
#include "study/journal.hpp"
#include "support/scratch_directory.hpp"
#include "tools/check/deck_text.hpp"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace korvat::test {

class BatchFixture : public testing::Test {
protected:
    [[nodiscard]] std::string path(const std::string& name) const {
        return (scratch_.path() / name).string();
    }

    // A directory with a deck.
    void write_case(const std::string& name, const std::string& deck) const {
        std::filesystem::create_directories(scratch_.path() / name);
        scratch_.write_file(name + "/KORVAT.INP", deck);
    }

    // A program of the test: a fixture for what the real one does not do.
    [[nodiscard]] std::string script(const std::string& name, const std::string& body) const {
        scratch_.write_file(name, "#!/bin/sh\n" + body);
        chmod(path(name).c_str(), 0755);
        return path(name);
    }

    [[nodiscard]] std::vector<std::string> with_files(std::vector<std::string> words) const {
        words.insert(words.begin(), "batch");
        for (const std::string word : {"--journal", "--summary"}) {
            if (std::ranges::count(words, word) != 0) continue;
            words.push_back(word);
            words.push_back(path(word == "--journal" ? "j" : "s"));
        }
        return words;
    }

    // With journal and summary in the test's own directory, and the real program unless another is named.
    [[nodiscard]] CommandCall batch(std::vector<std::string> words,
                                    const std::string& input = "") const {
        if (std::ranges::count(words, "--program") == 0)
            words.insert(words.begin(), {"--program", KORVAT_PROGRAM});
        return called_with(with_files(std::move(words)), input);
    }

    // The records of a journal, in their order.
    [[nodiscard]] std::vector<study::CaseRecord> journal(const std::string& name = "j") const {
        std::vector<study::CaseRecord> records;
        study::JournalReader(path(name)).scan([&](std::uint64_t, study::CaseRecord&& record) {
            records.push_back(std::move(record));
        });
        return records;
    }

    // The last record of a case.
    [[nodiscard]] study::CaseRecord record_of(const std::string& name) const {
        study::CaseRecord found;
        for (study::CaseRecord& record : journal()) {
            if (record.name == name) found = std::move(record);
        }
        return found;
    }

    // The rows of a summary without their last column, which nobody knows before.
    [[nodiscard]] static std::vector<std::string> rows(const std::string& text) {
        std::vector<std::string> found;
        std::size_t begin = 0;
        for (std::size_t end = text.find("\r\n"); end != std::string::npos;
             begin = end + 2, end = text.find("\r\n", begin)) {
            const std::string row = text.substr(begin, end - begin);
            found.push_back(row.substr(0, row.rfind(',')));
        }
        return found;
    }

    [[nodiscard]] std::vector<std::string> summary(const std::string& name = "s") const {
        return rows(scratch_.read_file(name));
    }

    ScratchDirectory scratch_;
    std::string good_ = good_deck().text();
    std::string bad_ = good_deck().with(7, "  x       piles").text();
};

} // namespace korvat::test
