// No rule finds anything in a sound deck, and in the examples only what an engineer would say too.
#include "rule_fixture.hpp"

#include <set>

namespace korvat::test {
namespace {

TEST(Rules, NothingToSayOfSoundDecks) {
    for (const std::string& deck : {sound_deck, sound_deck_5}) {
        const CheckedDeck checked(deck);
        EXPECT_EQ(checked.exit_code(), 0);
        EXPECT_EQ(checked.all_findings(), Findings{});
    }
}

TEST(Rules, PrintAll) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(KORVAT_EXAMPLES_DIR)) {
        if (entry.path().filename() != "KORVAT.INP") continue;
        std::cout << "=== " << entry.path().parent_path().filename() << "\n";
        const CheckedDeck checked(read_whole_file(entry.path()));
        for (const Finding& f : checked.all_findings()) {
            std::cout << f.place.line << ":" << f.place.column << " [" << f.rule << "] "
                      << f.message << " | " << f.remedy << "\n";
        }
    }
    for (const auto& entry : std::filesystem::directory_iterator(KORVAT_CASES_DIR)) {
        if (!std::filesystem::exists(entry.path() / "expected/run")) continue;
        const std::string run = read_whole_file(entry.path() / "expected/run");
        if (!run.starts_with("exit code 0")) continue;
        std::cout << "=== " << entry.path().filename() << "\n";
        try {
            const CheckedDeck checked(read_whole_file(entry.path() / "KORVAT.INP"));
            for (const Finding& f : checked.all_findings()) {
                std::cout << f.place.line << ":" << f.place.column << " [" << f.rule << "] "
                          << f.message << " | " << f.remedy << "\n";
            }
        } catch (const std::exception& e) {
            std::cout << "exception " << e.what() << "\n";
        }
    }
}

} // namespace
} // namespace korvat::test
