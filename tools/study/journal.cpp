#include "study/journal.hpp"

#include "platform/files.hpp"
#include "platform/paths.hpp"
#include "study/digest.hpp"
#include "study/study_error.hpp"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

namespace korvat::study {

namespace fs = std::filesystem;

JournalReader::JournalReader(const std::string& name)
    : name_(name), stream_(platform::path_of(name), std::ios::binary) {
    if (!stream_) throw StudyError(name + ": it cannot be read");
}

JournalReader::Scan
JournalReader::scan(const std::function<void(std::uint64_t offset, CaseRecord&&)>& take) {
    Scan found;
    stream_.clear();
    stream_.seekg(0);
    std::string line;
    while (std::getline(stream_, line) &&
           !stream_.eof()) { // at the end where its last LF is missing
        const std::uint64_t offset = found.end;
        found.end += line.size() + 1;
        if (auto record = record_of_line(line)) {
            take(offset, std::move(*record));
        } else {
            ++found.damaged;
        }
    }
    return found;
}

CaseRecord JournalReader::at(std::uint64_t offset) {
    stream_.clear();
    stream_.seekg(static_cast<std::streamoff>(offset));
    std::string line;
    std::getline(stream_, line);
    auto record = record_of_line(line);
    if (!record) throw StudyError(name_ + ": it has changed while it was in use");
    return std::move(*record);
}

Journal::Journal(const std::string& name, bool is_continued)
    : name_(name), file_(name), reader_(name) {
    if (file_.size() == 0) return; // also of what is no file
    if (!is_continued) {
        const std::string backup = name + ".bak";
        platform::remove_file(backup); // Windows copies onto no file that is there
        fs::copy_file(platform::path_of(name), platform::path_of(backup));
        file_.cut(0);
        return;
    }
    const JournalReader::Scan found =
        reader_.scan([this](std::uint64_t offset, CaseRecord&& record) {
            entries_.push_back({short_digest(record.name), offset});
        });
    damaged_ = found.damaged;
    if (found.end < file_.size()) file_.cut(found.end);
    std::ranges::stable_sort(entries_, {}, &Entry::hash);
}

std::uint64_t Journal::append(const CaseRecord& record) {
    const std::uint64_t offset = file_.size();
    file_.append(to_line(record) + '\n');
    return offset;
}

std::optional<std::pair<std::uint64_t, CaseRecord>> Journal::find(const std::string& name) {
    const std::uint64_t hash = short_digest(name);
    auto entry = std::ranges::upper_bound(entries_, hash, {}, &Entry::hash);
    while (entry != entries_.begin() && (--entry)->hash == hash) {
        CaseRecord record = reader_.at(entry->offset);
        if (record.name == name) return std::pair(entry->offset, std::move(record));
    }
    return std::nullopt;
}

} // namespace korvat::study
