// Journals: what they find again, and what a kill may leave of them.
#include "study/journal.hpp"

#include "study/study_error.hpp"
#include "support/scratch_directory.hpp"

#include <gtest/gtest.h>

namespace korvat::test {
namespace {

using study::CaseRecord;
using study::Journal;
using study::JournalReader;

CaseRecord named(const std::string& name, int tries = 1) {
    CaseRecord record;
    record.name = name;
    record.tries = tries;
    return record;
}

class StudyJournal : public testing::Test {
protected:
    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> found;
        JournalReader(name_).scan(
            [&](std::uint64_t, CaseRecord&& record) { found.push_back(record.name); });
        return found;
    }

    ScratchDirectory scratch_;
    std::string name_ = (scratch_.path() / "batch.jsonl").string();
};

TEST_F(StudyJournal, FindsTheLastRecordOfACase) {
    {
        Journal journal(name_, /*is_continued*/ false);
        EXPECT_EQ(journal.append(named("a", 1)), 0U);
        journal.append(named("b", 2));
        const std::uint64_t offset = journal.append(named("a", 3));
        EXPECT_EQ(journal.at(offset), named("a", 3));
    }
    Journal journal(name_, /*is_continued*/ true);
    EXPECT_EQ(journal.find("a")->second.tries, 3);
    EXPECT_EQ(journal.at(journal.find("b")->first).tries, 2);
    EXPECT_EQ(journal.find("c"), std::nullopt);
}

TEST_F(StudyJournal, LosesNothingButALineThatWasNotWrittenToItsEnd) {
    const std::string whole = study::to_line(named("a")) + "\n" + study::to_line(named("b")) + "\n";
    const std::string torn = study::to_line(named("c"));
    for (const std::size_t size : {std::size_t{1}, torn.size() / 2, torn.size()}) {
        scratch_.write_file("batch.jsonl", whole + torn.substr(0, size));
        Journal journal(name_, /*is_continued*/ true);
        EXPECT_EQ(journal.damaged(), 0U);
        EXPECT_EQ(scratch_.read_file("batch.jsonl"), whole);
        journal.append(named("d"));
        EXPECT_EQ(names(), (std::vector<std::string>{"a", "b", "d"})) << size;
    }
}

TEST_F(StudyJournal, PassesOverLinesThatAreNone) {
    scratch_.write_file("batch.jsonl", "words\n" + study::to_line(named("a")) + "\n\n");
    Journal journal(name_, /*is_continued*/ true);
    EXPECT_EQ(journal.damaged(), 2U);
    EXPECT_TRUE(journal.find("a").has_value());
}

TEST_F(StudyJournal, ThatIsNotContinuedStays) {
    {
        Journal journal(name_, /*is_continued*/ false);
        journal.append(named("a"));
    }
    const std::string before = scratch_.read_file("batch.jsonl");
    Journal journal(name_, /*is_continued*/ false);
    EXPECT_EQ(journal.find("a"), std::nullopt);
    EXPECT_EQ(scratch_.read_file("batch.jsonl"), "");
    EXPECT_EQ(scratch_.read_file("batch.jsonl.bak"), before);
}

TEST_F(StudyJournal, OneGenerationOfItStays) {
    for (const std::string name : {"a", "b", "c"}) {
        Journal journal(name_, /*is_continued*/ false);
        journal.append(named(name));
    }
    EXPECT_EQ(names(), std::vector<std::string>{"c"});
    EXPECT_EQ(scratch_.read_file("batch.jsonl.bak"), study::to_line(named("b")) + "\n");
}

TEST_F(StudyJournal, BelongsToOneBatch) {
    const Journal journal(name_, /*is_continued*/ false);
    EXPECT_THROW(Journal(name_, /*is_continued*/ true), platform::HeldByAnother);
    EXPECT_THROW(JournalReader((scratch_.path() / "none").string()), study::StudyError);
}

} // namespace
} // namespace korvat::test
