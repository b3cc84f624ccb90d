// Batches: what they say of cases that end in every way, in what order, and what they leave.
#include "batch_fixture.hpp"

#include "platform/locked_file.hpp"
#include "study/digest.hpp"
#include "support/file_size_limit.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace korvat::test {
namespace {

namespace fs = std::filesystem;
using study::CaseState;
using study::Keep;

using Names = std::vector<std::string>;

class Batch : public BatchFixture {};

const std::string no_values = ",,,,,,,,,,,,,,"; // of the columns from piles to moment

TEST_F(Batch, MakesOneTableOfRunsThatEndInEveryWay) {
    write_case("fine", good_);
    write_case("warned", good_deck().with(13, "  2       echo level").text());
    write_case("refused", bad_);
    fs::create_directory(scratch_.path() / "empty");
    scratch_.write_file("file", "");
    const CommandCall call = batch(
        {path("refused"), path("fine"), path("warned"), path("empty"), path("none"), path("file")});
    const std::string error =
        "SR/READ : NUMBER OF VARIABLES WHICH SHOULD BE ON LINE:    1, WAS NOT EQUAL TO NUMBER OF "
        "INPUT VARIABLES FOUND:    0, AT LOCATION =   225";
    EXPECT_EQ(call.code, 1);
    EXPECT_EQ(call.out.substr(0, 18), "6 cases, 4 failed,");
    const Names found = summary();
    ASSERT_EQ(found.size(), 7U);
    EXPECT_EQ(found[0],
              "case,state,exit code,first error,line,warnings,piles,nodes,elements,pile length "
              "[L],steel weight [F],largest D/t,sum of heads x [L],sum of heads y [L],sum of heads "
              "z [L],sum of tips x [L],sum of tips y [L],sum of tips z [L],smallest plastic axial "
              "force [F],smallest plastic moment [F L]");
    EXPECT_EQ(found[1], path("refused") + ",refused,1,\"" + error + "\",7,0" + no_values);
    EXPECT_EQ(found[2].substr(0, path("fine").size() + 22),
              path("fine") + ",fine,0,,,0,3,23,20,50");
    EXPECT_EQ(found[3].substr(0, path("warned").size() + 13), path("warned") + ",fine,0,,,1,3");
    EXPECT_EQ(found[4], path("empty") + ",not run,,there is no KORVAT.INP,,0" + no_values);
    EXPECT_EQ(found[5], path("none") + ",not run,,there is no such directory,,0" + no_values);
    EXPECT_EQ(found[6], path("file") + ",not run,,it is no directory,,0" + no_values);
    EXPECT_NE(call.error.find(path("refused") + ": KORVAT.INP:7: " + error + "\n"),
              std::string::npos);
    EXPECT_TRUE(fs::is_empty(scratch_.path() / "empty"));
    EXPECT_FALSE(scratch_.has("none"));
}

// The deck of docs/deck.md: two raked piles of 10, 9 and 6, with a composite of two tubes above.
TEST_F(Batch, ShowsTheValuesOfAGroup) {
    write_case("group", good_deck_5().text());
    EXPECT_EQ(batch({path("group"), "--format", "json"}).code, 0);
    const auto record = journal().at(0);
    ASSERT_TRUE(record.values.has_value());
    EXPECT_EQ(record.values->piles, 3);
    EXPECT_NEAR(record.values->length, 50.0, 1.0e-9);
    EXPECT_EQ(record.values->heads, (std::array{0.0, 0.0, -1.0}));
    EXPECT_EQ(record.values->tips, (std::array{0.0, 0.0, 48.0}));
    EXPECT_EQ(record.exit_code, 0);
    EXPECT_EQ(record.deck, study::digest(good_deck_5().text()));
    EXPECT_EQ(record.program, study::digest(read_whole_file(KORVAT_PROGRAM)));
    EXPECT_EQ(record.version.substr(0, 10), "7.6.0.81  ");
    const std::string json = scratch_.read_file("s");
    EXPECT_EQ(json.find("{\"format\":\"korvat summary\",\"version\":1,\"parameters\":[],"
                        "\"cases\":[\n{\"case\":"),
              0U);
    EXPECT_NE(json.find("\"state\":\"fine\",\"exit_code\":0,\"first_error\":null,\"line\":null,"),
              std::string::npos);
    EXPECT_EQ(json.substr(json.size() - 5), "}\n]}\n");
}

// The first case ends when the second one stands in the journal.
TEST_F(Batch, KeepsTheOrderOfTheCases) {
    write_case("1", "x");
    write_case("2", "y");
    const std::string program =
        script("run", "case $PWD in */1) until grep -q '/2\"' ../j; do :; done;; "
                      "esac; exit 1\n");
    EXPECT_EQ(batch({"-j", "2", "--program", program, path("1"), path("2")}).code, 1);
    EXPECT_EQ(journal().at(0).name, path("2"));
    EXPECT_EQ(summary().at(1).substr(0, path("1").size()), path("1"));
    EXPECT_EQ(summary().at(2).substr(0, path("2").size()), path("2"));
}

TEST_F(Batch, ACrashAndAHangAreARowEach) {
    for (const std::string name : {"crash", "hang", "broken", "fine"})
        write_case(name, name == "fine" ? good_ : name);
    const std::string program = script(
        "run", "read deck < KORVAT.INP; echo x >> tries\ncase $deck in crash) kill -SEGV $$;; "
               "hang) sleep 1000;; broken) exit 3;; esac\nexec " KORVAT_PROGRAM "\n");
    EXPECT_EQ(batch({"--timeout", "0.5", "--retry", "2", "--program", program, path("crash"),
                     path("hang"), path("broken"), path("fine")})
                  .code,
              1);
    EXPECT_EQ(summary().at(1), path("crash") + ",crashed,139,the program crashed,,0" + no_values);
    EXPECT_EQ(summary().at(2), path("hang") + ",timeout,,it was ended after 0.5 s,,0" + no_values);
    EXPECT_EQ(summary().at(3), path("broken") + ",crashed,3,the program broke off,,0" + no_values);
    EXPECT_EQ(record_of(path("fine")).state, CaseState::fine);
    for (const std::string name : {"crash", "hang", "broken"}) {
        EXPECT_EQ(scratch_.read_file(name + "/tries"), "x\nx\nx\n") << name;
        EXPECT_EQ(record_of(path(name)).tries, 3) << name;
    }
    EXPECT_EQ(scratch_.read_file("fine/tries"), "x\n");
}

TEST_F(Batch, ARefusedDeckIsNotTriedAgain) {
    write_case("a", bad_);
    const std::string program = script("run", "echo x >> tries; exec " KORVAT_PROGRAM "\n");
    EXPECT_EQ(batch({"--retry", "3", "--program", program, path("a")}).code, 1);
    EXPECT_EQ(scratch_.read_file("a/tries"), "x\n");
}

TEST_F(Batch, TakesAwkwardNames) {
    const Names names = {"a b",
                         "\"q\" 'r'",
                         "line\nend",
                         "S\xC3\xBC"
                         "d",
                         "-minus",
                         "\xFF bytes",
                         "$HOME;*"};
    Names words;
    for (const std::string& name : names) {
        write_case(name, good_);
        words.push_back(path(name));
    }
    EXPECT_EQ(batch(words).code, 0);
    std::string list;
    for (const std::string& name : words)
        list += name + '\0';
    EXPECT_EQ(batch({"-f", "-", "--resume"}, list).out.substr(0, 43),
              "7 cases, 0 failed, 7 as the journal has the");
    const auto record = record_of(path("\xFF bytes"));
    EXPECT_EQ(record.state, CaseState::fine);
    EXPECT_EQ(summary().at(3).substr(0, path("line\nend").size() + 2),
              "\"" + path("line\nend") + "\"");
    // A minus in front needs the sign that ends the options.
    const fs::path before = fs::current_path();
    fs::current_path(scratch_.path());
    EXPECT_EQ(called_with({"batch", "--program", KORVAT_PROGRAM, "--journal", "j2", "--summary",
                           "s2", "--", "-minus"})
                  .code,
              0);
    fs::current_path(before);
    EXPECT_EQ(summary("s2").at(1).substr(0, 12), "-minus,fine,");
}

TEST_F(Batch, RunsACaseThatIsNamedTwiceOneAfterTheOther) {
    write_case("a", good_);
    const std::string program =
        script("run", "mkdir lock || exit 9\nrmdir lock; exec " KORVAT_PROGRAM "\n");
    EXPECT_EQ(batch({"-j", "3", "--program", program, path("a"), path("a"), path("a")}).code, 0);
    EXPECT_EQ(summary().size(), 4U);
}

TEST_F(Batch, SecondBatchDoesNothing) {
    write_case("a", good_);
    const platform::LockedFile first(path("j"));
    const CommandCall call = batch({path("a")});
    EXPECT_EQ(call, (CommandCall{2, "",
                                 "korvat-tools batch: another batch is running with the journal " +
                                     path("j") + "; nothing was done\n"}));
    EXPECT_FALSE(scratch_.has("a/PILE.07"));
    EXPECT_FALSE(scratch_.has("s"));
}

TEST_F(Batch, LeavesAFolderAloneInWhichAnotherRuns) {
    write_case("a", good_);
    const int folder = open(path("a").c_str(), O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(flock(folder, LOCK_EX | LOCK_NB), 0);
    EXPECT_EQ(batch({path("a")}).code, 1);
    EXPECT_EQ(summary().at(1),
              path("a") + ",not run,,another program runs this case,,0" + no_values);
    EXPECT_FALSE(scratch_.has("a/KORVAT.MLG"));
    close(folder);
    EXPECT_EQ(batch({path("a"), "--resume"}).code, 0);
}

TEST_F(Batch, AnotherProgramIsNoticed) {
    for (const std::string name : {"1", "2", "3"})
        write_case(name, name);
    const std::string other = script("other", "exit 2\n");
    const std::string program = script(
        "run",
        "read deck < KORVAT.INP; [ $deck = 1 ] && cp ../other ../new && mv ../new $0\nexit 1\n");
    const std::string before = study::digest(scratch_.read_file("run"));
    const std::string after = study::digest(scratch_.read_file("other"));
    const CommandCall call =
        batch({"-j", "1", "--program", program, path("1"), path("2"), path("3")});
    EXPECT_EQ(
        call.error.find("the program has changed: its digest is " + after + " from here on\n"),
        call.error.find("the program has changed"));
    EXPECT_NE(call.error.find("the program has changed"), std::string::npos);
    EXPECT_EQ(record_of(path("1")).program, before);
    EXPECT_EQ(record_of(path("2")).program, after);
    EXPECT_EQ(record_of(path("2")).exit_code, 2);
    // What the other one has run is run again.
    EXPECT_EQ(batch({"-j", "1", "--resume", "--program", program, path("1"), path("2"), path("3")})
                  .out.substr(0, 30),
              "3 cases, 3 failed, 2 as the jo");
}

TEST_F(Batch, AProgramThatIsGoneEndsTheBatch) {
    for (const std::string name : {"1", "2", "3"})
        write_case(name, name);
    const std::string program = script("run", "rm -f $0; exit 1\n");
    const CommandCall call =
        batch({"-j", "1", "--program", program, path("1"), path("2"), path("3")});
    EXPECT_EQ(call.code, 2);
    EXPECT_NE(call.error.find("korvat-tools batch: " + program +
                              ": the program is gone; 1 case, 1 failed, "),
              std::string::npos)
        << call.error;
    EXPECT_EQ(journal().size(), 1U);
    EXPECT_FALSE(scratch_.has("s"));
}

TEST_F(Batch, RunsNothingWithoutAProgram) {
    write_case("a", good_);
    const auto refused = [&](const std::string& program) {
        const CommandCall call = batch({"--program", program, path("a")});
        EXPECT_EQ(call.code, 2);
        EXPECT_EQ(call.out, "");
        return call.error;
    };
    EXPECT_EQ(refused(path("none")),
              "korvat-tools batch: --program " + path("none") + ": there is no such file\n");
    scratch_.write_file("text", "");
    EXPECT_EQ(refused(path("text")), "korvat-tools batch: --program " + path("text") +
                                         ": it is no program that you may run\n");
    EXPECT_EQ(refused("korvat-that-is-nowhere"),
              "korvat-tools batch: --program korvat-that-is-nowhere: it is not on the PATH\n");
    EXPECT_FALSE(scratch_.has("j"));
    // It may be run, but the system cannot.
    scratch_.write_file("text", "no program");
    chmod(path("text").c_str(), 0755);
    EXPECT_NE(refused(path("text")).find(": it cannot be started: Exec format error; 0 cases"),
              std::string::npos);
    EXPECT_EQ(journal().size(), 0U);
}

TEST_F(Batch, ToldWrongUse) {
    write_case("a", good_);
    EXPECT_EQ(batch({}).error, "korvat-tools batch: name the cases, or their list by -f\n");
    EXPECT_EQ(batch({path("a"), "-f", path("a")}).code, 2);
    EXPECT_EQ(
        batch({path("a"), "--shard", "3/2"}).error,
        "korvat-tools batch: --shard 3/2: it has the form K/N, such as 3/8, with K from 1 to N\n");
    EXPECT_EQ(batch({"-f", path("none")}).code, 2);
    for (const Names& wrong : {Names{"-j", "0"}, Names{"--timeout", "0"}, Names{"--retry", "-1"},
                               Names{"--keep", "some"}, Names{"--format", "xml"}}) {
        Names words = wrong;
        words.push_back(path("a"));
        EXPECT_EQ(batch(words).code, 2) << wrong[0];
    }
    EXPECT_FALSE(scratch_.has("a/PILE.07"));
}

TEST_F(Batch, SkipsWhatIsAsTheJournalSays) {
    for (const std::string name : {"1", "2", "3", "4", "5"})
        write_case(name, name == "5" ? bad_ : good_);
    const std::string program = script("run", "echo x >> tries; exec " KORVAT_PROGRAM "\n");
    const Names words = {"--resume", "--program", program,   path("1"),
                         path("2"),  path("3"),   path("4"), path("5")};
    EXPECT_EQ(batch(words).code, 1);
    const Names before = summary();
    EXPECT_EQ(batch(words).out.substr(0, 44), "5 cases, 1 failed, 5 as the journal has them");
    EXPECT_EQ(summary(), before);
    // Another deck; a result that is gone; one of the same size but of other content.
    scratch_.write_file("2/KORVAT.INP", good_deck().with(1, "Another label").text());
    fs::remove(scratch_.path() / "3/LOAD.09");
    std::string pile = scratch_.read_file("4/PILE.07");
    pile[pile.size() / 2] ^= 1;
    scratch_.write_file("4/PILE.07", pile);
    EXPECT_EQ(batch(words).out.substr(0, 44), "5 cases, 1 failed, 2 as the journal has them");
    EXPECT_EQ(summary(), before);
    EXPECT_EQ(scratch_.read_file("1/tries"), "x\n");
    EXPECT_EQ(scratch_.read_file("2/tries"), "x\nx\n");
    EXPECT_EQ(scratch_.read_file("3/tries"), "x\nx\n");
    EXPECT_EQ(scratch_.read_file("4/tries"), "x\nx\n");
    EXPECT_EQ(scratch_.read_file("5/tries"), "x\n"); // refused, as it would be again
    // Without --resume everything is run, and the journal starts anew.
    const Names anew(words.begin() + 1, words.end());
    EXPECT_EQ(batch(anew).code, 1);
    EXPECT_EQ(scratch_.read_file("1/tries"), "x\nx\n");
    EXPECT_EQ(journal().size(), 5U);
    EXPECT_EQ(journal("j.bak").size(), 8U);
}

TEST_F(Batch, KeepsWhatIsWanted) {
    const auto files = [&](const std::string& name) {
        Names found;
        for (const auto& entry : fs::directory_iterator(scratch_.path() / name))
            found.push_back(entry.path().filename().string());
        std::ranges::sort(found);
        return found;
    };
    write_case("fine", good_);
    write_case("bad", bad_);
    scratch_.write_file("fine/notes.txt", "mine");
    const auto run = [&](const std::string& keep) {
        return batch({"--resume", "--keep", keep, path("fine"), path("bad")}).out;
    };
    EXPECT_EQ(batch({path("fine")}).code, 0);
    EXPECT_EQ(batch({path("fine"), path("bad")}).code, 1);
    EXPECT_EQ(files("fine"),
              (Names{"KORVAT.INP", "KORVAT.LIS", "KORVAT.LIS.bak", "KORVAT.MLG", "KORVAT.MLG.bak",
                     "LOAD.09", "PILE.07", "PILEPLOT.TXT", "PILEPLOT.TXT.bak", "notes.txt"}));
    const Names before = summary();
    const std::string all_skipped = "2 cases, 1 failed, 2 as the journal has them";
    // What is no longer wanted goes, and is not missed.
    EXPECT_EQ(run("results").substr(0, 44), all_skipped);
    EXPECT_EQ(files("fine"), (Names{"KORVAT.INP", "LOAD.09", "PILE.07", "notes.txt"}));
    EXPECT_EQ(run("failed").substr(0, 44), all_skipped);
    EXPECT_EQ(files("fine"), (Names{"KORVAT.INP", "notes.txt"}));
    EXPECT_EQ(run("all").substr(0, 44), all_skipped);
    EXPECT_EQ(run("failed").substr(0, 44), all_skipped);
    EXPECT_EQ(summary(), before);
    EXPECT_EQ(files("bad"),
              (Names{"KORVAT.INP", "KORVAT.LIS", "KORVAT.MLG", "PILE.07", "PILEPLOT.TXT"}));
    EXPECT_EQ(record_of(path("fine")).kept, Keep::failed);
    EXPECT_EQ(record_of(path("bad")).kept, Keep::all);
}

// A journal that takes no line more ends the batch; it goes on when there is room.
TEST_F(Batch, AFullDiskUnderTheJournalEndsIt) {
    write_case("a", good_);
    const CommandCall call = batch({"--journal", "/dev/full", path("a")});
    EXPECT_EQ(call.code, 2);
    EXPECT_NE(call.error.find("the journal: /dev/full: No space left on device"), std::string::npos)
        << call.error;
    EXPECT_FALSE(scratch_.has("s"));
}

TEST_F(Batch, ALostOutputIsTheMachinesFault) {
    write_case("a", good_deck_5().text());
    {
        const FileSizeLimit limit(30'000); // PILE.07 has 80 000 bytes, a line of the journal one
        EXPECT_EQ(batch({path("a")}).code, 1);
    }
    EXPECT_EQ(summary().at(1),
              path("a") + ",lost,255,cannot write PILE.07: File too large,,0" + no_values);
    EXPECT_EQ(batch({"--resume", path("a")}).code, 0); // it is run again
}

TEST_F(Batch, AResultThatCannotBeOpenedIsAFailure) {
    write_case("a", good_);
    fs::create_directory(scratch_.path() / "a/PILE.07");
    EXPECT_EQ(batch({path("a")}).code, 1);
    EXPECT_EQ(summary().at(1),
              path("a") +
                  ",lost,0,cannot open PILE.07: Is a directory; what stands there is "
                  "of an earlier run,,1" +
                  no_values);
}

TEST_F(Batch, AFolderThatTakesNothingLosesTheRun) {
    if (geteuid() == 0) {
        // Permissions do not hold root back: the folder vanishes during the run instead.
        write_case("gone", good_);
        const std::string program = script("run", "rm -r ../gone; exec " KORVAT_PROGRAM "\n");
        EXPECT_EQ(batch({"--program", program, path("gone")}).code, 1);
        EXPECT_EQ(record_of(path("gone")).state, CaseState::lost);
        return;
    }
    write_case("a", good_);
    chmod(path("a").c_str(), 0555);
    EXPECT_EQ(batch({path("a")}).code, 1);
    EXPECT_EQ(record_of(path("a")).state, CaseState::lost);
    chmod(path("a").c_str(), 0755);
    EXPECT_EQ(batch({"--resume", path("a")}).code, 0);
}

TEST_F(Batch, PartsTogetherAreTheWhole) {
    scratch_.write_file("t.inp", good_deck().with_changed(21, "0.025", "{wall}").text());
    EXPECT_EQ(
        called_with({"sweep", path("t.inp"), "--grid", "wall=0.02:0.026:0.001", "-o", path("c")})
            .code,
        0);
    scratch_.write_file("c/3/KORVAT.INP", bad_);
    const CommandCall whole = called_with({"batch", "--program", KORVAT_PROGRAM, path("c")});
    EXPECT_EQ(whole.code, 1);
    EXPECT_NE(
        whole.error.find(
            "korvat-tools batch: decks that have changed since the manifest was written: 1\n"),
        std::string::npos);
    const Names expected = summary("c/summary.csv");
    ASSERT_EQ(expected.size(), 8U);
    EXPECT_EQ(expected[0].substr(0, 16), "case,wall,state,");
    EXPECT_EQ(expected[2].substr(0, 16), "2,0.021,fine,0,,");
    EXPECT_EQ(expected[3].substr(0, 18), "3,0.022,refused,1,");
    Names merge = {"merge"};
    for (const std::string part : {"3", "1", "2"}) {
        const Names words = {"batch",   "--program", KORVAT_PROGRAM,
                             path("c"), "--shard",   part + "/3"};
        EXPECT_EQ(called_with(words).code, part == "3" ? 1 : 0);
        merge.push_back(path("c/batch-" + part + "-of-3.jsonl"));
    }
    EXPECT_EQ(journal("c/batch-1-of-3.jsonl").size(), 3U); // 1, 4 and 7
    EXPECT_FALSE(scratch_.has("c/summary-1-of-3.csv"));
    const CommandCall merged = called_with(merge);
    EXPECT_EQ(merged.code, 1);
    EXPECT_EQ(merged.error, "");
    EXPECT_EQ(rows(merged.out), expected);
}

TEST_F(Batch, TellsWhereItsFilesCannotBe) {
    write_case("a", good_);
    EXPECT_EQ(
        batch({"--journal", path("none/j"), path("a")}),
        (CommandCall{2, "",
                     "korvat-tools batch: " + path("none/j") + ": No such file or directory\n"}));
    EXPECT_FALSE(scratch_.has("a/PILE.07"));
    const CommandCall call = batch({"--summary", path("none/s"), path("a")});
    EXPECT_EQ(call, (CommandCall{2, "",
                                 "korvat-tools batch: " + path("none/s") +
                                     ": No such file or directory\n"}));
    EXPECT_EQ(batch({"--resume", path("a")}).code, 0); // nothing of it was lost
}

TEST_F(Batch, NameAloneIsEnough) {
    write_case("a", good_);
    const fs::path before = fs::current_path();
    fs::current_path(scratch_.path());
    const CommandCall call = called_with({"batch", "--program", KORVAT_PROGRAM, "a"});
    fs::current_path(before);
    EXPECT_EQ(call.code, 0);
    EXPECT_EQ(call.error, "");
    EXPECT_TRUE(scratch_.has("batch.jsonl"));
    EXPECT_EQ(summary("summary.csv").at(1).substr(0, 7), "a,fine,");
}

} // namespace
} // namespace korvat::test
