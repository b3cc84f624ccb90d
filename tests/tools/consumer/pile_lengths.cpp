// Prints the length of each pile of a run, and its loads: pile_lengths DIRECTORY
#include <group/group.hpp>
#include <group/read_files.hpp>

#include <exception>
#include <iostream>

namespace {

double length_of(const korvat::group::Pile& pile) {
    double length = 0.0;
    for (const korvat::group::Element& element : pile.elements)
        length += element.length;
    return length;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: pile_lengths DIRECTORY\n";
        return 2;
    }
    try {
        const auto [group, has_loads, pile_damage, load_damage] =
            korvat::group::read_group(argv[1]);
        if (pile_damage || load_damage) {
            const auto& damage = pile_damage ? *pile_damage : *load_damage;
            std::cerr << "damaged at byte " << damage.offset << ": " << damage.reason << '\n';
            return 1;
        }
        std::cout << group.label << '\n';
        for (const korvat::group::Pile& pile : group.piles)
            std::cout << "pile " << pile.number << ": " << length_of(pile) << '\n';
        for (const korvat::group::LoadVector& vector : group.load_vectors)
            std::cout << vector.label << ": " << vector.loads.size() << '\n';
    } catch (const std::exception& error) { // such as a file that is not there
        std::cerr << error.what() << '\n';
        return 2;
    }
    return 0;
}
