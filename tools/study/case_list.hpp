// The cases of a batch, one after the other: names that are given, lists of names, studies of `sweep`.
#pragma once

#include "study/case_record.hpp"
#include "study/list_stream.hpp"

#include <cstdint>
#include <istream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace korvat::study {

// A case before its run.
struct ListedCase {
    std::string name; // in the summary
    std::string directory;
    Parameters parameters;
    std::string deck; // digest that the manifest has; empty where there is no manifest
};

// What names cases: arguments, or a list.
struct CaseNames {
    std::vector<std::string> arguments;
    std::string list; // a file of names or a manifest, "-" for standard input; empty: there is none
};

// The K-th of N parts: the cases whose position, from 0, gives K - 1 when divided by N.
struct Shard {
    std::uint64_t number = 1; // from 1
    std::uint64_t count = 1;

    [[nodiscard]] bool has(std::uint64_t position) const { return position % count == number - 1; }
    [[nodiscard]] bool is_all() const { return count == 1; }
};

// Raises StudyError where the text is not K/N with K from 1 to N.
[[nodiscard]] Shard shard_of(const std::string& text);

// A directory with a deck is a case; one with a manifest and without a deck is a study, which stands for all its
// cases in the order of the manifest. A case of a study has the name of its folder where the study is all that was
// named, else the path to it. Names in a list are separated by line ends or, where it has a zero byte near its
// beginning, by zero bytes; they are relative to the current directory, folders of a manifest to its own.
class CaseList {
public:
    // `input` is read where the list is "-".
    CaseList(CaseNames names, std::istream& input);
    ~CaseList();
    CaseList(const CaseList&) = delete;
    CaseList& operator=(const CaseList&) = delete;

    // None at the end. Raises StudyError for a list that cannot be read or a manifest that is none.
    [[nodiscard]] std::optional<ListedCase> next();

    // The columns of the studies so far.
    [[nodiscard]] const std::vector<std::string>& columns() const { return columns_; }

    // Where the files of a batch go that are not named: the directory of the study, with a slash behind it,
    // where there is nothing but one study; else empty, the current one.
    [[nodiscard]] static std::string home(const CaseNames& names);

private:
    class Names;
    class Manifest;

    void open_list();
    void open_manifest(const std::string& directory, std::unique_ptr<ListStream> rows,
                       const std::string& shown);
    [[nodiscard]] std::optional<std::string> next_name();

    CaseNames names_;
    std::istream& input_;
    std::size_t next_argument_ = 0;
    bool is_list_open_ = false;
    bool is_only_study_ = false;
    std::unique_ptr<Names> list_;
    std::unique_ptr<Manifest> manifest_;
    std::vector<std::string> columns_;
};

} // namespace korvat::study
