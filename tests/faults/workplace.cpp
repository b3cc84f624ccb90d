// The decks of the fault tests, and a directory that holds one of them and the files of earlier runs.
#include "workplace.hpp"

#include "../support/masks.hpp"
#include "../support/sound_deck.hpp"
#include "../support/text.hpp"

namespace korvat::test {

std::string accepted_deck() {
    const std::string echoed = with_change(sound_deck_5(), "0       echo", "1       echo");
    return with_change(echoed, "Tubular cross sections\n",
                       "Tubular cross sections\n"
                       "*  the first line of a composite section: zeros up to the fluid\n");
}

std::string refused_deck() {
    return with_change(accepted_deck(), "  1    400.", "  4    400.");
}

std::string warned_deck() {
    return with_change(accepted_deck(), "-1    1   1.000  0.030", "-1    1   1.000  0.008");
}

Workplace::Workplace(const std::string& deck) {
    directory_.write_file("KORVAT.INP", deck);
}

void Workplace::add_earlier_files() const {
    for (const char* const name :
         {"KORVAT.MLG", "KORVAT.MLG.bak", "KORVAT.LIS", "KORVAT.LIS.bak", "PILEPLOT.TXT",
          "PILEPLOT.TXT.bak", "PILE.07", "LOAD.09", scratch_name}) {
        directory_.write_file(name, earlier_content(name));
    }
}

Outcome Workplace::run(const Surroundings& surroundings) const {
    return faulty_run(directory_.path(), surroundings);
}

std::string earlier_content(const std::string& name) {
    return "content of the earlier " + name + "\n";
}

std::map<std::string, std::string> masked(std::map<std::string, std::string> files) {
    for (auto& [name, content] : files) {
        if (name == "KORVAT.MLG") content = mask_log(content);
        if (name == "KORVAT.LIS") content = mask_listing(content);
    }
    return files;
}

} // namespace korvat::test
