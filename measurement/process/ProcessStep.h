#pragma once

#include "../../export/Export.h"
#include "../../settings/factory/SettingsFactory.h"
#include "../../settings/readers/BatchSequenceSettings.h"
#include "../../settings/readers/FilterSettings.h"
#include "../../settings/readers/PlaneCorrectionSettings.h"

#include <variant>
#include <vector>

namespace CommonUI::Measurement
{

/// Missing points get heights.
struct SInterpolation {
    friend bool operator==(const SInterpolation&, const SInterpolation&) = default;
};

/// A step of a sequence that leaves the surface as it is, such as a report.
struct SNoChange {
    friend bool operator==(const SNoChange&, const SNoChange&) = default;
};

/// What a step does.
using CStepWork = std::variant<SPlaneCorrectionSettings, SFilterSettings, SInterpolation, SNoChange>;

/// A step of the processing of an open surface.
struct COMMONUIMEASUREMENT_API SProcessStep {
    unsigned id = 0;       ///< which step of the surface it is, wherever it stands
    CStr name{};           ///< where its set stands in a menu, or what it does
    SBatchStep source{};   ///< the step as a batch sequence has it, with the set that the work was read from
    CStepWork work{};      ///< with the numbers that were edited
    bool isOn = true;      ///< whether it is done
    bool isEdited = false; ///< whether the work is another one than the set says

    friend bool operator==(const SProcessStep&, const SProcessStep&) = default;

    /// The last part of its name.
    CStr GetTitle() const;
    /// Its name, and its numbers where they were edited, in English.
    CStr Describe() const;
};

/// The steps of a surface in the order in which they are done.
using CProcessSteps = std::vector<SProcessStep>;

/// Reads a step of a batch sequence with its set, which does not become a recent one.
/// @throws ERequest for a set that cannot be read or used
COMMONUIMEASUREMENT_API SProcessStep LoadStep(CSettingsFactory& factory, const SBatchStep& source);
/// The step of a batch sequence that applies a set; the entry is one of the factory's.
COMMONUIMEASUREMENT_API SBatchStep MakeBatchStep(const SSettingsEntry& entry);

/// A number of a step that can be edited.
enum class EStepNumber {
    Order,             ///< of a polynomial
    Columns,           ///< of the window, in points
    Rows,              ///< of the window, in lines
    StandardDeviation, ///< of a Gaussian window, in points
    Threshold,         ///< of what stands out, in standard deviations
    MaximumWidth,      ///< of streaks, in lines
    Cutoff,            ///< m
    CutoffShare,       ///< of the evaluation length
};

/// A number of a step, with the values that it may have.
struct SStepNumber {
    EStepNumber number; ///< which one it is
    double value;       ///< that it has now
    double lowest;      ///< value that it may have
    double highest;     ///< value that it may have
    /// Between two values that it may have; 0 for any of the range.
    double step = 0;
};

/// What can be edited of a step, in the order of a form.
COMMONUIMEASUREMENT_API std::vector<SStepNumber> GetNumbers(const CStepWork& work);
/// Gives a number the nearest value that it may have.
/// @return false, and nothing changes, where the work has no such number, or a set cannot have this value
///     together with its other ones
COMMONUIMEASUREMENT_API bool SetNumber(CStepWork& work, EStepNumber number, double value);

/// How many points of a surface one of a smaller surface stands for, at least 1.
struct SPointsPerPoint {
    double x = 1; ///< in points of a line
    double y = 1; ///< in lines
};

/// The work as it is to be done on a smaller surface, so that the result looks the same: what is counted in
/// points has so many times fewer, but a window with a threshold at least 3 in each direction.
COMMONUIMEASUREMENT_API CStepWork ScaleWork(CStepWork work, const SPointsPerPoint& ratio);

/// The text of an INI file with what the work is made of; empty for a work without a set.
COMMONUIMEASUREMENT_API std::string WriteWork(const CStepWork& work);
/// Reads what WriteWork has written, in place of a work of the same kind.
/// @return false, and nothing changes, where it is none
COMMONUIMEASUREMENT_API bool ReadWork(std::string_view text, CStepWork& work);

} // namespace CommonUI::Measurement
