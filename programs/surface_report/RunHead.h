#pragma once

#include "measurement/Choices.h"
#include "programs/surface_report/Options.h"
#include "programs/surface_report/Plan.h"

#include <string>
#include <vector>

namespace SurfaceReport
{

/// Something that is to be said of a run on many files.
struct SRunFact {
    std::string key;   ///< for machines
    std::string label; ///< for people
    std::string text;  ///< UTF-8

    bool operator==(const SRunFact&) const = default;
};

/// What the rows of a run on many files have in common, as texts that a file can hold.
struct SRunHead {
    std::vector<std::string> key{};     ///< what values depend on besides the file
    std::vector<std::string> columns{}; ///< the keys of the parameters
    std::vector<std::string> shown{};   ///< how values are shown, and which statistics
    std::vector<SRunFact> facts{};      ///< what was done, for the reports

    bool operator==(const SRunHead&) const = default;
};

SRunHead MakeRunHead(const SOptions& options, const SPlan& plan,
                     const CommonUI::Measurement::SChoices& choices);

/// What the report of a file depends on besides what the values of the table do, as a short text: equal for
/// equal reports.
std::string DescribeMaking(const SOptions& options, const CommonUI::Measurement::SChoices& choices);

/// The parameters and statistics from which the head of a run was made, for its table.
/// @throws std::runtime_error where the texts are not those of MakeRunHead
CommonUI::Measurement::SChoices ChoicesOf(const SRunHead& head);

} // namespace SurfaceReport
