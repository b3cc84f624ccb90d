// The table of a batch: a row for each case, in the order of the cases.
#pragma once

#include "export/csv_table.hpp"
#include "study/case_record.hpp"

#include <filesystem>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

namespace korvat::study {

enum class SummaryFormat { csv, json };

// Writes rows as they come; nothing of them stays in memory.
class SummaryWriter {
public:
    // `parameters` are the columns of the studies.
    SummaryWriter(std::ostream& out, SummaryFormat format, std::vector<std::string> parameters);

    void add(const CaseRecord& record);

    // What stands behind the last row.
    void finish();

private:
    void add_csv(const CaseRecord& record);
    void add_json(const CaseRecord& record);

    std::ostream& out_;
    SummaryFormat format_;
    std::vector<std::string> parameters_;
    exporting::CsvTable table_;
    bool is_first_ = true;
};

// A file that gets its name when it is whole, or standard output for "-". What is no file, such as a pipe, is
// written as it is.
class SummaryFile {
public:
    // Raises std::system_error.
    explicit SummaryFile(std::string name);
    ~SummaryFile();
    SummaryFile(const SummaryFile&) = delete;
    SummaryFile& operator=(const SummaryFile&) = delete;

    [[nodiscard]] std::ostream& stream();

    // Raises std::system_error where the disk has not taken it; what stood there stays.
    void finish();

private:
    std::string name_;
    std::filesystem::path fresh_; // empty where there is none
    std::unique_ptr<std::ostream> own_;
};

} // namespace korvat::study
