#include "study/case_list.hpp"

#include "platform/paths.hpp"
#include "study/csv_rows.hpp"
#include "study/outputs.hpp"
#include "study/study_error.hpp"
#include "study/sweep.hpp"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <utility>

namespace korvat::study {
namespace {

namespace fs = std::filesystem;

constexpr const char* standard_input = "-";
constexpr std::string_view manifest_beginning = "row,folder,";

bool is_file(const std::string& name) {
    std::error_code ignored;
    return fs::is_regular_file(platform::path_of(name), ignored);
}

bool is_study(const std::string& directory) {
    return is_file(below(directory, manifest_name)) && !is_file(below(directory, deck_name));
}

bool begins_as_manifest(std::string_view text) {
    return text.starts_with(manifest_beginning);
}

std::unique_ptr<std::istream> opened(const std::string& name) {
    auto stream = std::make_unique<std::ifstream>(platform::path_of(name), std::ios::binary);
    if (!*stream || !is_file(name)) throw StudyError(name + ": it cannot be read");
    return stream;
}

bool is_manifest(const std::string& name) {
    const ListStream list(opened(name));
    return begins_as_manifest(list.beginning());
}

} // namespace

// The names of a list.
class CaseList::Names {
public:
    explicit Names(std::unique_ptr<ListStream> list) : list_(std::move(list)) {
        if (list_->beginning().find('\0') != std::string::npos) separator_ = '\0';
    }

    std::optional<std::string> next() {
        std::string name;
        while (std::getline(list_->stream(), name, separator_)) {
            if (separator_ == '\n' && name.ends_with('\r')) name.pop_back();
            if (!name.empty()) return name;
        }
        return std::nullopt;
    }

private:
    std::unique_ptr<ListStream> list_;
    char separator_ = '\n';
};

// The rows of a manifest.
class CaseList::Manifest {
public:
    Manifest(std::unique_ptr<ListStream> list, std::string directory, const std::string& shown)
        : list_(std::move(list)), rows_(list_->stream(), shown), directory_(std::move(directory)),
          shown_(shown) {
        auto header = rows_.next();
        const bool is_manifest = header && header->size() >= 3 && header->front() == "row" &&
                                 (*header)[1] == "folder" && header->back() == "deck";
        if (!is_manifest) throw StudyError(shown_ + ": it is no manifest of korvat-tools sweep");
        columns_.assign(header->begin() + 2, header->end() - 1);
    }

    std::optional<ListedCase> next(bool has_short_names) {
        auto row = rows_.next();
        if (!row) return std::nullopt;
        if (row->size() != columns_.size() + 3 || (*row)[1].empty()) {
            throw StudyError(shown_ + ":" + std::to_string(rows_.line()) +
                             ": the row does not have the values that the header names");
        }
        const std::string path = below(directory_, (*row)[1]);
        ListedCase found{has_short_names ? (*row)[1] : path, path, {}, row->back()};
        for (std::size_t i = 0; i < columns_.size(); ++i)
            found.parameters.emplace_back(columns_[i], std::move((*row)[i + 2]));
        return found;
    }

    [[nodiscard]] const std::vector<std::string>& columns() const { return columns_; }

private:
    std::unique_ptr<ListStream> list_;
    CsvRows rows_;
    std::string directory_;
    std::string shown_;
    std::vector<std::string> columns_;
};

Shard shard_of(const std::string& text) {
    Shard shard;
    const char* const end = text.data() + text.size();
    const auto [slash, first_error] = std::from_chars(text.data(), end, shard.number);
    const bool is_half = first_error == std::errc() && slash != end && *slash == '/';
    if (is_half) {
        const auto [stop, error] = std::from_chars(slash + 1, end, shard.count);
        if (error == std::errc() && stop == end && shard.number >= 1 &&
            shard.number <= shard.count) {
            return shard;
        }
    }
    throw StudyError("--shard " + text + ": it has the form K/N, such as 3/8, with K from 1 to N");
}

CaseList::CaseList(CaseNames names, std::istream& input)
    : names_(std::move(names)), input_(input), is_only_study_(!home(names_).empty()) {}

CaseList::~CaseList() = default;

std::string CaseList::home(const CaseNames& names) {
    if (names.list.empty()) {
        const bool is_one = names.arguments.size() == 1 && is_study(names.arguments.front());
        return is_one ? below(names.arguments.front(), "") : "";
    }
    if (names.list == standard_input || !is_manifest(names.list)) return {};
    const std::string directory = platform::name_of(platform::path_of(names.list).parent_path());
    return below(directory.empty() ? "." : directory, "");
}

void CaseList::open_list() {
    is_list_open_ = true;
    const bool is_input = names_.list == standard_input;
    auto list = is_input ? std::make_unique<ListStream>(input_)
                         : std::make_unique<ListStream>(opened(names_.list));
    if (!begins_as_manifest(list->beginning())) {
        list_ = std::make_unique<Names>(std::move(list));
        return;
    }
    is_only_study_ = true;
    const std::string directory = platform::name_of(platform::path_of(names_.list).parent_path());
    open_manifest(is_input ? "" : directory, std::move(list),
                  is_input ? "standard input" : names_.list);
}

void CaseList::open_manifest(const std::string& directory, std::unique_ptr<ListStream> rows,
                             const std::string& shown) {
    manifest_ = std::make_unique<Manifest>(std::move(rows), directory, shown);
    for (const std::string& column : manifest_->columns()) {
        if (std::ranges::find(columns_, column) == columns_.end()) columns_.push_back(column);
    }
}

std::optional<std::string> CaseList::next_name() {
    if (next_argument_ < names_.arguments.size()) return names_.arguments[next_argument_++];
    return list_ ? list_->next() : std::nullopt;
}

std::optional<ListedCase> CaseList::next() {
    if (!names_.list.empty() && !is_list_open_) open_list();
    while (true) {
        if (manifest_) {
            if (auto found = manifest_->next(is_only_study_)) return found;
            manifest_.reset();
        }
        const auto name = next_name();
        if (!name) return std::nullopt;
        if (!is_study(*name)) return ListedCase{*name, *name, {}, {}};
        const std::string file = below(*name, manifest_name);
        open_manifest(*name, std::make_unique<ListStream>(opened(file)), file);
    }
}

} // namespace korvat::study
