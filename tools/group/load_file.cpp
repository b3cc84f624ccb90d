#include "group/load_file.hpp"

#include <utility>

namespace korvat::group {
namespace {

constexpr std::size_t label_size = 80;
constexpr std::size_t count_size = 4;
constexpr std::size_t load_size = 4 + 6 * 8;

Load load_of(const Record& record) {
    Items items(record);
    Load load;
    load.pile = items.integer();
    for (double& component : load.force)
        component = items.real();
    for (double& component : load.moment)
        component = items.real();
    return load;
}

class LoadReader {
public:
    explicit LoadReader(std::span<const char> file) : records_(read_records(file)) {}

    LoadReading read() {
        while (next_ < records_.records.size() && read_vector()) {
        }
        if (!result_.damage) result_.damage = records_.damage;
        return std::move(result_);
    }

private:
    // The next record, when there is one of that size; otherwise that is the damage.
    const Record* record(std::size_t size, const std::string& name) {
        if (next_ == records_.records.size()) {
            result_.damage =
                records_.damage ? records_.damage : Damage{records_.end, name + " is missing"};
            return nullptr;
        }
        const Record& found = records_.records[next_];
        if (found.bytes.size() != size) {
            result_.damage =
                Damage{found.offset, name + " has " + std::to_string(found.bytes.size()) +
                                         " bytes, not " + std::to_string(size)};
            return nullptr;
        }
        ++next_;
        return &found;
    }

    bool read_vector() {
        const std::string name = "load vector " + std::to_string(result_.vectors.size() + 1);
        const Record* const label = record(label_size, "the label of " + name);
        if (label == nullptr) return false;
        LoadVector& vector = result_.vectors.emplace_back();
        vector.label = Items(*label).text();
        const Record* const count = record(count_size, "the count of " + name);
        if (count == nullptr) return false;
        const int loads = Items(*count).integer();
        if (loads < 0) {
            result_.damage =
                Damage{count->offset, name + " has " + std::to_string(loads) + " loads"};
            return false;
        }
        for (int i = 1; i <= loads; ++i) {
            const Record* const load =
                record(load_size, "load " + std::to_string(i) + " of " + name);
            if (load == nullptr) return false;
            vector.loads.push_back(load_of(*load));
        }
        return true;
    }

    Records records_;
    std::size_t next_ = 0;
    LoadReading result_;
};

} // namespace

LoadReading read_load(std::span<const char> file) {
    return LoadReader(file).read();
}

} // namespace korvat::group
