#include "study/batch.hpp"

#include "group/read_files.hpp"
#include "platform/capacity.hpp"
#include "platform/paths.hpp"
#include "platform/processes.hpp"
#include "study/outputs.hpp"
#include "study/run_messages.hpp"
#include "study/study_error.hpp"
#include "study/value_format.hpp"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <system_error>
#include <utility>
#include <variant>

namespace korvat::study {
namespace {

namespace fs = std::filesystem;
using platform::ProcessEnd;
using platform::StartFault;
using Clock = std::chrono::steady_clock;

constexpr std::uint64_t memory_of_run = std::uint64_t{20} << 20U; // bytes, see docs/messages.md
constexpr double held_patience = 1.0; // seconds that a folder may stay held
constexpr std::size_t most_told = 10; // failures; the others are in the summary

// A case of this batch.
struct Work {
    ListedCase given;
    CaseRecord record;
    std::size_t place = 0; // in the outcome
};

struct RunningCase {
    Work work;
    int id = 0;
    Clock::time_point deadline; // the latest moment where there is none
    bool is_too_late = false;
};

std::string shown(const CaseRecord& record) {
    const std::string place =
        record.line ? "KORVAT.INP:" + std::to_string(*record.line) + ": " : "";
    return record.name + ": " + place + record.error;
}

bool is_settled(CaseState state) {
    return state == CaseState::fine || state == CaseState::refused;
}

Keep kept_of(CaseState state, Keep wish) {
    return state == CaseState::fine ? wish : Keep::all;
}

// Why a directory has no deck.
std::string missing_deck(const std::string& directory) {
    std::error_code error;
    const auto status = fs::status(platform::path_of(directory), error);
    if (!fs::exists(status)) return "there is no such directory";
    if (!fs::is_directory(status)) return "it is no directory";
    const bool has_deck = fs::exists(platform::path_of(below(directory, deck_name)), error);
    return has_deck ? "KORVAT.INP cannot be read" : "there is no KORVAT.INP";
}

// Takes the first error, or the first message about a result that was not written, into the record.
void take_messages(CaseRecord& record, const std::vector<RunMessage>& messages) {
    record.warnings = static_cast<int>(std::ranges::count_if(messages, &RunMessage::is_warning));
    const auto error = std::ranges::find(messages, false, &RunMessage::is_warning);
    if (error == messages.end()) return;
    record.error = error->text;
    record.line = error->line;
}

CaseState state_of(const ProcessEnd& end, const std::vector<RunMessage>& messages) {
    constexpr int stopped = 255;
    const bool is_of_run =
        !end.is_crash && ((end.exit_code >= 0 && end.exit_code <= 2) || end.exit_code == stopped);
    if (!is_of_run) return CaseState::crashed;
    if (end.exit_code == 0) return CaseState::fine;
    const bool is_lost = std::ranges::any_of(messages, [](const RunMessage& message) {
        return !message.is_warning && is_of_machine(message);
    });
    return is_lost ? CaseState::lost : CaseState::refused;
}

// A result that a run with exit code 0 could not open.
const RunMessage* lost_result(const std::vector<RunMessage>& messages) {
    const auto found = std::ranges::find_if(messages, [](const RunMessage& message) {
        const std::string name = old_output(message);
        return is_of_machine(message) && (name == "PILE.07" || name == "LOAD.09");
    });
    return found == messages.end() ? nullptr : &*found;
}

void take_group(CaseRecord& record, const std::string& directory) {
    try {
        const auto path = platform::path_of(below(directory, "PILE.07"));
        const group::GroupReading reading = group::read_pile_file(path);
        if (!reading.damage) {
            record.values = group_values(reading.group);
            return;
        }
        record.error = "PILE.07: offset " + std::to_string(reading.damage->offset) + ": " +
                       reading.damage->reason;
    } catch (const std::system_error& error) {
        record.error = "PILE.07: " + error.code().message();
    }
    record.state = CaseState::lost;
}

class Batch {
public:
    Batch(const BatchWishes& wishes, CaseList& cases, RunProgram& program, Journal& journal,
          Progress& progress)
        : wishes_(wishes), cases_(cases), program_(program), journal_(journal),
          progress_(progress) {}

    BatchOutcome run() {
        while (go_on()) {
            fill();
            progress_.show(outcome_.counts);
            if (running_.empty()) {
                if (!has_more_) break;
                continue;
            }
            if (const auto end = processes_.wait(patience())) take_end(*end);
            end_late_ones();
        }
        outcome_.end_request = processes_.end_request();
        progress_.finish();
        return std::move(outcome_);
    }

private:
    [[nodiscard]] bool go_on() const {
        return processes_.end_request() == 0 && (outcome_.stop.empty() || !running_.empty()) &&
               !is_given_up_;
    }

    void fill() {
        while (has_more_ && outcome_.stop.empty() && processes_.end_request() == 0 &&
               running_.size() < static_cast<std::size_t>(wishes_.jobs)) {
            if (!waiting_) waiting_ = next_work();
            if (!waiting_) {
                has_more_ = false;
                return;
            }
            if (is_running(waiting_->given.directory)) return; // it was named twice
            if (!begin(*waiting_)) return;
            waiting_.reset();
            progress_.show(outcome_.counts);
        }
    }

    // The next case of the shard.
    std::optional<Work> next_work() {
        while (auto given = cases_.next()) {
            const std::uint64_t position = position_++;
            if (!wishes_.shard.has(position)) continue;
            Work work;
            work.record.name = given->name;
            work.record.position = position;
            work.record.parameters = given->parameters;
            work.given = std::move(*given);
            work.place = outcome_.offsets.size();
            outcome_.offsets.push_back(no_offset);
            return work;
        }
        return std::nullopt;
    }

    [[nodiscard]] bool is_running(const std::string& directory) const {
        return std::ranges::any_of(running_, [&](const RunningCase& each) {
            return each.work.given.directory == directory;
        });
    }

    // False where it must be tried again when a running one has ended.
    bool begin(Work& work) {
        if (!look_at_program()) return false;
        const auto deck = deck_digest(work.given.directory);
        work.record.deck = deck.value_or("");
        const bool is_other = deck && !work.given.deck.empty() && *deck != work.given.deck;
        if (is_other) ++outcome_.other_decks;
        if (wishes_.is_resumed && deck && skip(work)) return true;
        if (!deck) {
            work.record.error = missing_deck(work.given.directory);
            finish(work);
            return true;
        }
        return start(work);
    }

    bool look_at_program() {
        try {
            if (program_.has_changed()) {
                progress_.tell("the program has changed: its digest is " + program_.digest() +
                               " from here on");
            }
            return true;
        } catch (const StudyError& error) {
            outcome_.stop = error.what();
            return false;
        }
    }

    // Whether the journal has the case as it stands on the disk.
    bool skip(Work& work) {
        auto found = journal_.find(work.record.name);
        if (!found) return false;
        auto& [offset, known] = *found;
        const bool is_same = is_settled(known.state) && known.deck == work.record.deck &&
                             known.program == program_.digest() &&
                             has_outputs(work.given.directory, known);
        if (!is_same) return false;
        // What has been removed cannot come back; what a kill has left is removed now.
        const Keep keep = std::max(known.kept, kept_of(known.state, wishes_.keep));
        const bool is_as_listed = known.position == work.record.position &&
                                  known.parameters == work.record.parameters && known.kept == keep;
        known.position = work.record.position;
        known.parameters = work.record.parameters;
        known.kept = keep;
        ++outcome_.counts.skipped;
        count_failure(known);
        if (is_as_listed) {
            outcome_.offsets[work.place] = offset;
        } else if (!write(known, work.place)) {
            return true;
        }
        if (known.state == CaseState::fine) remove_outputs(work.given.directory, keep);
        return true;
    }

    bool start(Work& work) {
        work.record.program = program_.digest();
        const auto until = Clock::now() + std::chrono::duration<double>(held_patience);
        while (true) {
            auto started = processes_.start(program_.path(), absolute(work.given.directory));
            if (const int* const id = std::get_if<int>(&started)) {
                ++work.record.tries;
                running_.push_back({std::move(work), *id, deadline()});
                return true;
            }
            const auto& fault = std::get<StartFault>(started);
            if (fault.cause == StartFault::Cause::program) {
                outcome_.stop = program_.path() + ": it cannot be started: " + fault.reason;
                return false;
            }
            // What ran here when an earlier batch was killed may be about to end.
            const bool is_held = fault.cause == StartFault::Cause::held && Clock::now() < until;
            if (is_held && processes_.end_request() == 0) {
                constexpr double moment = 0.01;
                if (const auto end = processes_.wait(moment)) take_end(*end);
                if (is_given_up_) return true;
                continue;
            }
            if (fault.cause == StartFault::Cause::machine && !running_.empty()) return false;
            work.record.error = fault.cause == StartFault::Cause::held
                                    ? "another program runs this case"
                                    : "it cannot be started: " + fault.reason;
            finish(work);
            return true;
        }
    }

    // The path of a directory for a process; the directory need not exist.
    static std::string absolute(const std::string& directory) {
        return platform::name_of(fs::absolute(platform::path_of(directory)));
    }

    [[nodiscard]] Clock::time_point deadline() const {
        if (wishes_.timeout <= 0.0) return Clock::time_point::max();
        return Clock::now() + std::chrono::duration_cast<Clock::duration>(
                                  std::chrono::duration<double>(wishes_.timeout));
    }

    // Seconds until something must be done though no process has ended.
    [[nodiscard]] double patience() const {
        double seconds = progress_.period();
        for (const RunningCase& each : running_) {
            if (each.is_too_late || each.deadline == Clock::time_point::max()) continue;
            const std::chrono::duration<double> rest = each.deadline - Clock::now();
            seconds = std::min(seconds, std::max(rest.count(), 0.0));
        }
        return seconds;
    }

    void end_late_ones() {
        const auto now = Clock::now();
        for (RunningCase& each : running_) {
            if (each.is_too_late || each.deadline > now) continue;
            each.is_too_late = true;
            processes_.end(each.id);
        }
    }

    void take_end(const ProcessEnd& end) {
        const auto found = std::ranges::find(running_, end.id, &RunningCase::id);
        if (found == running_.end()) return;
        RunningCase ended = std::move(*found);
        running_.erase(found);
        judge(ended, end);
        const CaseState state = ended.work.record.state;
        const bool is_retried = (state == CaseState::crashed || state == CaseState::timeout) &&
                                ended.work.record.tries <= wishes_.retries;
        if (is_retried) {
            again(ended.work);
        } else {
            finish(ended.work);
        }
    }

    void judge(RunningCase& ended, const ProcessEnd& end) {
        CaseRecord& record = ended.work.record;
        const std::string& directory = ended.work.given.directory;
        record.seconds = end.seconds;
        record.version = program_.version_by_log(below(directory, "KORVAT.MLG"));
        const std::vector<RunMessage> messages = run_messages(end.standard_error);
        // A run that had ended by itself before it was ended has its own result.
        const bool is_timeout = ended.is_too_late && end.is_crash;
        record.state = is_timeout ? CaseState::timeout : state_of(end, messages);
        record.exit_code = is_timeout ? std::nullopt : std::optional(end.exit_code);
        take_messages(record, messages);
        if (is_timeout) {
            record.error = "it was ended after " + plain(wishes_.timeout) + " s";
            record.line.reset();
        } else if (record.state == CaseState::crashed && record.error.empty()) {
            record.error = end.is_crash ? "the program crashed" : "the program broke off";
        }
        const RunMessage* const lost = lost_result(messages);
        if (record.state == CaseState::fine && lost != nullptr) {
            record.state = CaseState::lost;
            record.error = lost->text;
        } else if (record.state == CaseState::fine) {
            take_group(record, directory);
        }
        record.outputs = present_outputs(directory, messages);
    }

    void again(Work& work) {
        CaseRecord fresh;
        fresh.name = work.record.name;
        fresh.position = work.record.position;
        fresh.parameters = std::move(work.record.parameters);
        fresh.deck = work.record.deck;
        fresh.tries = work.record.tries;
        work.record = std::move(fresh);
        if (!look_at_program() || start(work) || !outcome_.stop.empty()) return;
        work.record.error = "it cannot be started again";
        finish(work);
    }

    // A case has its last state: it goes into the journal.
    void finish(Work& work) {
        work.record.kept = kept_of(work.record.state, wishes_.keep);
        ++outcome_.counts.run;
        count_failure(work.record);
        if (!write(work.record, work.place)) return;
        if (work.record.state == CaseState::fine)
            remove_outputs(work.given.directory, wishes_.keep);
    }

    void count_failure(const CaseRecord& record) {
        if (record.state == CaseState::fine) return;
        ++outcome_.counts.failed;
        if (outcome_.counts.failed < most_told) progress_.tell(shown(record));
        if (outcome_.counts.failed == most_told)
            progress_.tell(shown(record) + "\nfurther failures are in the summary");
    }

    bool write(const CaseRecord& record, std::size_t place) {
        try {
            outcome_.offsets[place] = journal_.append(record);
            return true;
        } catch (const std::system_error& error) {
            outcome_.stop = std::string("the journal: ") + error.what();
            is_given_up_ = true;
            return false;
        }
    }

    const BatchWishes& wishes_;
    CaseList& cases_;
    RunProgram& program_;
    Journal& journal_;
    Progress& progress_;
    platform::Processes processes_;
    std::vector<RunningCase> running_;
    std::optional<Work> waiting_; // for another one to end
    std::uint64_t position_ = 0;  // of the next case of the list
    bool has_more_ = true;
    bool is_given_up_ = false;
    BatchOutcome outcome_;
};

} // namespace

int usable_jobs() {
    const std::uint64_t by_memory = platform::usable_memory() / memory_of_run;
    const auto cores = static_cast<std::uint64_t>(platform::usable_cores());
    const auto most = static_cast<std::uint64_t>(platform::Processes::most_at_once());
    return static_cast<int>(std::max<std::uint64_t>(std::min({cores, by_memory, most}), 1));
}

BatchOutcome run_batch(const BatchWishes& wishes, CaseList& cases, RunProgram& program,
                       Journal& journal, Progress& progress) {
    return Batch(wishes, cases, program, journal, progress).run();
}

} // namespace korvat::study
