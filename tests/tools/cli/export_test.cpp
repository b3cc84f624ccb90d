// The command export: what it writes, and where it refuses.
#include "group/load_file.hpp"
#include "group/pile_file.hpp"
#include "support/scratch_directory.hpp"
#include "tools/cli/command_call.hpp"

#include <optional>

namespace korvat::test {
namespace {

class ExportCommand : public testing::Test {
protected:
    using Call = CommandCall;

    [[nodiscard]] std::string path(const std::string& name) const {
        return (scratch_.path() / name).generic_string();
    }

    // Exports `from` into the directory `out` below the scratch directory.
    [[nodiscard]] Call exported(const std::string& formats, const std::string& from) const {
        return called_with({"export", "--to", formats, "-o", path("out"), from});
    }

    [[nodiscard]] Call written(const std::vector<std::string>& names) const {
        std::string out;
        for (const std::string& name : names)
            out += (scratch_.path() / "out" / name).generic_string() + "\n";
        return {0, out, ""};
    }

    static Call refused(int code, const std::string& message) {
        return {code, "", "korvat-tools export: " + message + "\n"};
    }

    static std::string damage(const std::optional<group::Damage>& damage) {
        return "offset " + std::to_string(damage->offset) + ": " + damage->reason;
    }

    static std::string example(const std::string& name) {
        return read_whole_file(std::filesystem::path(KORVAT_EXAMPLES_DIR) / name);
    }

    ScratchDirectory scratch_;
};

const std::string barge_pile = "barge-impact/expected/PILE.07";
const std::string barge_load = "barge-impact/expected/LOAD.09";

TEST_F(ExportCommand, WritesTheFilesOfEachFormatOnce) {
    scratch_.write_file("PILE.07", example(barge_pile));
    scratch_.write_file("LOAD.09", example(barge_load));
    const Call call = exported("vtu,csv,vtp,json,vtu", scratch_.path().generic_string());
    const std::vector<std::string> names{"group.vtu",  "sections.csv", "elements.csv", "nodes.csv",
                                         "curves.csv", "loads.csv",    "piles.csv",    "piles.vtp",
                                         "nodes.vtp",  "load-1.vtp",   "load-2.vtp",   "load-3.vtp",
                                         "load-4.vtp", "load-5.vtp",   "group.json"};
    EXPECT_EQ(call, written(names));
    std::size_t files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(path("out")))
        files += entry.file_size() > 0 ? 1 : 0;
    EXPECT_EQ(files, names.size());
    EXPECT_EQ(scratch_.list(), (std::vector<std::string>{"LOAD.09", "PILE.07", "out"}));
    EXPECT_EQ(scratch_.read_file("PILE.07"), example(barge_pile));
}

TEST_F(ExportCommand, APileFileOfAnyNameStandsForItself) {
    scratch_.write_file("revision-b", example(barge_pile));
    scratch_.write_file("LOAD.09", example(barge_load));
    EXPECT_EQ(exported("vtp", path("revision-b")), written({"piles.vtp", "nodes.vtp"}));
}

TEST_F(ExportCommand, ReplacesOlderFiles) {
    scratch_.write_file("PILE.07", example(barge_pile));
    std::filesystem::create_directory(path("out"));
    write_whole_file(path("out") + "/group.vtu", std::string(1000000, 'x'));
    EXPECT_EQ(exported("vtu", path("PILE.07")), written({"group.vtu"}));
    EXPECT_TRUE(read_whole_file(path("out") + "/group.vtu").ends_with("</VTKFile>\n"));
}

// What is neither a PILE.07 nor a LOAD.09 is taken for a deck, and its run tells what is wrong.
TEST_F(ExportCommand, RefusesWhatIsNoRun) {
    const auto told_of = [&](const std::string& name) {
        const Call call = exported("csv", path(name));
        EXPECT_EQ(call.code, 1) << name;
        EXPECT_TRUE(call.error.starts_with(path(name) + ":")) << call.error;
        EXPECT_TRUE(
            call.error.ends_with("korvat-tools export: the run of the deck ends without results\n"))
            << call.error;
    };
    scratch_.write_file("KORVAT.INP", "KP, a label\nKORVAT Version: 2006-06-11\n");
    told_of("KORVAT.INP");
    // A deck may even begin as a file with a label does.
    scratch_.write_file("deck", "KP" + std::string(80, 'x') + "\n1.0\n");
    told_of("deck");
    scratch_.write_file("empty", "");
    told_of("empty");
    EXPECT_EQ(scratch_.list(), (std::vector<std::string>{"KORVAT.INP", "deck", "empty"}));
}

TEST_F(ExportCommand, RefusesAnOutputThatCannotBeMade) {
    scratch_.write_file("PILE.07", example(barge_pile));
    scratch_.write_file("out", "");
    EXPECT_EQ(exported("csv", path("PILE.07")).code, 2);
    EXPECT_EQ(scratch_.read_file("out"), "");
    std::filesystem::remove(path("out"));
    std::filesystem::create_directories(path("out") + "/group.vtu");
    EXPECT_EQ(exported("vtu", path("PILE.07")),
              refused(2, path("out/group.vtu") + ": Is a directory"));
}

TEST_F(ExportCommand, RefusesAnUnknownFormat) {
    scratch_.write_file("PILE.07", example(barge_pile));
    const Call call = exported("csv,dxf", path("PILE.07"));
    EXPECT_EQ(call.code, 2);
    EXPECT_NE(call.error.find("dxf"), std::string::npos) << call.error;
    EXPECT_FALSE(scratch_.has("out"));
}

// The label and the counts end at byte 93; there the first section begins.
TEST_F(ExportCommand, TellsTheDamageOfAPileFile) {
    scratch_.write_file("PILE.07", example(barge_pile).substr(0, 100));
    EXPECT_EQ(exported("csv", scratch_.path().generic_string()),
              refused(1, path("PILE.07") + ": offset 93: the file ends inside a segment"));
    scratch_.write_file("PILE.07", "K\x82"); // of a run that failed
    EXPECT_EQ(exported("csv", path("PILE.07")).code, 1);
    scratch_.write_file("PILE.07", "no such file");
    EXPECT_EQ(exported("csv", path("PILE.07")).code, 1);
    EXPECT_EQ(scratch_.list(), (std::vector<std::string>{"PILE.07"}));
}

// Wherever it is cut behind its first two bytes, whatever its name: at each byte of the label and the
// counts, then here and there. The tests of the readers have every place.
TEST_F(ExportCommand, RefusesACutPileFile) {
    const std::string file = example("dolphin/expected/PILE.07");
    for (std::size_t length = 2; length < file.size(); length += length < 100 ? 1 : 997) {
        const std::string cut = file.substr(0, length);
        scratch_.write_file("cut", cut);
        EXPECT_EQ(exported("vtp,vtu,csv", path("cut")),
                  refused(1, path("cut") + ": " + damage(group::read_pile(cut).damage)))
            << length;
    }
    EXPECT_EQ(scratch_.list(), (std::vector<std::string>{"cut"}));
}

TEST_F(ExportCommand, RefusesACutLoadFile) {
    scratch_.write_file("PILE.07", example(barge_pile));
    const std::string file = example(barge_load);
    for (std::size_t length = 0; length < file.size(); length += length < 60 ? 1 : 97) {
        const std::string cut = file.substr(0, length);
        scratch_.write_file("LOAD.09", cut);
        EXPECT_EQ(exported("vtp", scratch_.path().generic_string()),
                  refused(1, path("LOAD.09") + ": " + damage(group::read_load(cut).damage)))
            << length;
    }
    EXPECT_EQ(scratch_.list(), (std::vector<std::string>{"LOAD.09", "PILE.07"}));
}

// Vectors 1 and 2 of the barge's loads are on piles 1, 12 and 13; the jacket has 4 piles.
TEST_F(ExportCommand, RefusesLoadsOfAnotherGroup) {
    scratch_.write_file("PILE.07", example("jacket/expected/PILE.07"));
    scratch_.write_file("LOAD.09", example(barge_load));
    EXPECT_EQ(exported("csv", scratch_.path().generic_string()),
              refused(1, path("LOAD.09") +
                             ": load vector 2 loads pile 12, which the group does not have"));
    EXPECT_FALSE(scratch_.has("out"));
}

} // namespace
} // namespace korvat::test
