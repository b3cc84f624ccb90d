// Judges a run under a fault by what the undisturbed run does: nothing lost, nothing silent.
#include "verdict.hpp"

#include "../support/masks.hpp"
#include "../support/text.hpp"
#include "workplace.hpp"

#include <algorithm>
#include <cstring>

namespace korvat::test {

namespace {

constexpr int stopped = 255;
constexpr std::string_view not_written = "korvat: cannot write ";

bool holds(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

bool is_hit(const Outcome& run, const std::string& name) {
    return std::find(run.hit.begin(), run.hit.end(), name) != run.hit.end();
}

bool is_output(const std::string& name) {
    return std::find(output_names.begin(), output_names.end(), name) != output_names.end();
}

std::string content(const std::map<std::string, std::string>& files, const std::string& name) {
    const auto file = files.find(name);
    return file == files.end() ? std::string("(no such file)\n") : file->second;
}

// The log without what it says of the record files that could not be opened.
std::string without_open_problems(const std::string& log) {
    std::vector<std::string> lines;
    for (const std::string& line : split_lines(log)) {
        if (holds(line, " OPEN PROBLEM  IERR=") && !lines.empty()) {
            lines.pop_back(); // the empty line before the message
        } else {
            lines.push_back(line);
        }
    }
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

// What the run says, wherever it says it.
std::string log_of(const Outcome& run) {
    const auto log = run.files.find("KORVAT.MLG");
    const bool in_file = log != run.files.end() && !log->second.empty() &&
                         log->second != earlier_content("KORVAT.MLG");
    return mask_log(in_file ? log->second : run.standard_output);
}

// A file that could not be opened keeps its content, or is the empty file of a failed attempt, or
// is none at all.
bool is_unopened(const Outcome& run, const std::string& name) {
    const auto file = run.files.find(name);
    return file == run.files.end() || file->second.empty() || file->second == earlier_content(name);
}

// Whether a fault of this kind may keep a file from being opened, with an outcome of its own.
bool prevents_opening(Call call) {
    return call == Call::open || call == Call::rename || call == Call::status ||
           call == Call::seek || call == Call::allocate;
}

// Whether an output that is not right has a fault that it may have, told where it must be. Without
// a kind of calls the fault may be anywhere.
bool is_told(const Outcome& run, std::optional<Call> call, const std::string& name) {
    if (call == Call::read) {
        return name == "KORVAT.LIS" && is_hit(run, "KORVAT.INP") &&
               holds(run.standard_error, " **** ERROR IN SR/ECHO");
    }
    const bool may_be_hit = !call || call == Call::allocate || is_hit(run, name);
    if ((call && !prevents_opening(*call)) || !may_be_hit || !is_unopened(run, name)) return false;
    const bool is_warned = holds(run.standard_error, "korvat: warning: cannot open " + name + ": ");
    if (run.exit_code == 0 && !is_warned) return false;
    if (name == "PILE.07") return holds(log_of(run), "FILE PILE.O7 OPEN PROBLEM");
    if (name == "LOAD.09") return holds(log_of(run), "FILE LOAD.09 OPEN PROBLEM");
    // The log of a failed run does not tell these; the log itself stands on standard output then.
    return name == "PILEPLOT.TXT" || name == "KORVAT.MLG";
}

// The log is a file or goes to standard output, and the run reports what it lost of it.
bool is_log_reported(const Outcome& run, const std::map<std::string, std::string>& reported) {
    return reported.contains("KORVAT.MLG") || reported.contains("standard output") ||
           holds(run.standard_error, "korvat: warning: cannot write standard output: ");
}

// A run that claims to have ended as the undisturbed one, but for the files that it reports.
void judge_outputs(const Outcome& run, std::optional<Call> call, const Outcome& undisturbed,
                   std::vector<std::string>& complaints) {
    const auto found = masked(run.files);
    const auto expected = masked(undisturbed.files);
    const auto reported = files_not_written(run);
    for (const std::string name : output_names) {
        if (name == "KORVAT.MLG" || reported.contains(name)) continue;
        if (content(found, name) == content(expected, name)) continue;
        if (!is_told(run, call, name)) complaints.push_back(name + " is not right, and not told");
    }
    if (is_log_reported(run, reported)) return;
    if (without_open_problems(log_of(run)) !=
        without_open_problems(content(expected, "KORVAT.MLG"))) {
        complaints.emplace_back("the log is not right");
    }
}

std::string first_line(const std::string& text) {
    return text.substr(0, text.find('\n'));
}

// Whether the run ended as the undisturbed one does, for the same reason.
bool ended_alike(const Outcome& run, const Outcome& undisturbed) {
    return run.exit_code == undisturbed.exit_code &&
           holds(run.standard_error, first_line(undisturbed.standard_error));
}

// A run that ended with an error of its own.
void judge_refusal(const Outcome& run, std::vector<std::string>& complaints) {
    const bool told = holds(run.standard_error, "korvat: KORVAT.INP:") ||
                      holds(run.standard_error, "korvat: KORVAT.LIS:");
    if (!told) complaints.emplace_back("standard error does not say why");
    if (!holds(log_of(run), " **** SR/")) complaints.emplace_back("the log does not say why");
}

// Whether the errno of the fault is what the program sees last. After other faults the program's own
// attempts to go on bring other reasons.
bool leaves_its_reason(const Fault& fault) {
    switch (fault.call.value()) {
    case Call::write:
    case Call::flush:
    case Call::close:
        return true;
    case Call::open:
        return fault.all_after;
    default:
        return false;
    }
}

// A run that was stopped: it names the files that it could not write or, when it could not go on
// reading, the file or the line that it had come to.
void judge_stop(const Outcome& run, const Fault& fault, std::vector<std::string>& complaints) {
    const auto reported = files_not_written(run);
    if (fault.call == Call::allocate) {
        const bool is_told = holds(run.standard_error, "korvat: out of memory\n");
        if (!is_told && reported.empty()) complaints.emplace_back("the shortage is not told");
        return;
    }
    const bool reads = fault.call == Call::read || fault.call == Call::seek;
    const bool is_read_fault =
        reads && (holds(run.standard_error, "korvat: KORVAT.INP:") ||
                  holds(run.standard_error, "korvat: Error rewinding file: "));
    if (reported.empty() && !is_read_fault) complaints.emplace_back("no file is reported");
    for (const auto& [name, reason] : reported) {
        if (!is_hit(run, name)) complaints.push_back(name + " was not hit, yet reported");
        if (leaves_its_reason(fault) && reason != std::strerror(fault.error)) {
            complaints.push_back("wrong reason for " + name + ": " + reason);
        }
    }
}

// Whether a fault of this kind must be reported even when no byte has been lost. A flush that has
// nothing to write is none of these.
bool must_be_reported(Call call, const std::string& name) {
    const bool writes = call == Call::write || call == Call::close;
    return writes && (is_output(name) || name == scratch_name);
}

// What an earlier run left stands in the backup or, where it could not be moved, in its place.
void judge_backups(const Outcome& run, std::vector<std::string>& complaints) {
    for (const std::string name : {"KORVAT.MLG", "KORVAT.LIS", "PILEPLOT.TXT"}) {
        const std::string earlier = earlier_content(name);
        const bool is_kept =
            content(run.files, name + ".bak") == earlier || content(run.files, name) == earlier;
        if (!is_kept) complaints.push_back("the earlier " + name + " is lost");
    }
}

} // namespace

std::map<std::string, std::string> files_not_written(const Outcome& run) {
    std::map<std::string, std::string> reported;
    for (const std::string& line : split_lines(run.standard_error)) {
        const std::size_t colon = line.find(": ", not_written.size());
        if (!line.starts_with(not_written) || colon == std::string::npos) continue;
        reported[line.substr(not_written.size(), colon - not_written.size())] =
            line.substr(colon + 2);
    }
    return reported;
}

std::vector<std::string> differences(const Outcome& run, const Outcome& undisturbed) {
    std::vector<std::string> list;
    if (run.exit_code != undisturbed.exit_code) {
        list.push_back("exit code " + std::to_string(run.exit_code) + ", not " +
                       std::to_string(undisturbed.exit_code));
    }
    if (run.standard_output != undisturbed.standard_output) list.emplace_back("standard output");
    if (run.standard_error != undisturbed.standard_error) list.emplace_back("standard error");
    const auto found = masked(run.files);
    for (const auto& [name, content] : masked(undisturbed.files)) {
        const auto file = found.find(name);
        if (file == found.end() || file->second != content) list.push_back(name);
    }
    for (const auto& [name, content] : found) {
        if (!undisturbed.files.contains(name)) list.push_back(name + " is too many");
    }
    return list;
}

std::vector<std::string> complaints(const Outcome& run, const std::string& reason,
                                    const Outcome& undisturbed) {
    std::vector<std::string> list;
    const auto reported = files_not_written(run);
    if (ended_alike(run, undisturbed)) {
        judge_outputs(run, std::nullopt, undisturbed, list);
    } else if (run.exit_code == 1) {
        judge_refusal(run, list);
    } else if (run.exit_code != stopped) {
        list.push_back("exit code " + std::to_string(run.exit_code));
    } else if (reported.empty()) {
        list.emplace_back("no file is reported");
    }
    for (const auto& [name, told] : reported) {
        if (told != reason) list.push_back("wrong reason for " + name + ": " + told);
    }
    // Without its copy of the deck a run does not come to its end.
    if (reported.empty() || reported.contains(scratch_name)) return list;
    const auto found = masked(run.files);
    for (const auto& [name, content] : masked(undisturbed.files)) {
        const bool is_right = found.contains(name) && found.at(name) == content;
        if (is_right == reported.contains(name)) {
            list.push_back(
                name + (is_right ? " is right, yet reported" : " is not right, and not reported"));
        }
    }
    return list;
}

std::vector<std::string> complaints(const Outcome& run, const Fault& fault,
                                    const Outcome& undisturbed) {
    if (run.fired == 0) return differences(run, undisturbed);
    std::vector<std::string> list;
    if (run.exit_code != undisturbed.exit_code && run.exit_code != 1 && run.exit_code != stopped) {
        list.push_back("exit code " + std::to_string(run.exit_code));
        return list;
    }
    const Call call = fault.call.value();
    if (run.exit_code == stopped) {
        judge_stop(run, fault, list);
    } else if (ended_alike(run, undisturbed)) {
        judge_outputs(run, call, undisturbed, list);
    } else {
        judge_refusal(run, list);
    }
    judge_backups(run, list);
    const auto reported = files_not_written(run);
    for (const std::string& name : run.hit) {
        if (!must_be_reported(call, name) || reported.contains(name)) continue;
        list.push_back(name + " could not be written, and is not reported");
    }
    return list;
}

} // namespace korvat::test
