#pragma once

#include "../../common/Enum.h"
#include "../../common/ini/Inifile.h"
#include "../../export/Export.h"
#include "../SettingTypes.h"

#include <cstddef>
#include <vector>

namespace CommonUI
{

/// What a step of a batch sequence does with the measurement.
enum class EBatchOperation {
    Apply = 0,           ///< runs the tool of a settings set with this set; a report template writes a report
    ShowProfiles = 1,    ///< draws horizontal cross sections, evenly spaced, and shows their profiles
    InterpolateVoids = 2 ///< gives missing points the heights of a smooth surface through their neighbours
};

/// The operations, with the names under which they are stored.
COMMONUI_API const CEnum<EBatchOperation>& GetBatchOperationEnum();

/// A step of a batch sequence. What the operation does not need keeps its default.
struct SBatchStep {
    EBatchOperation operation = EBatchOperation::Apply; ///< decides which of the others count
    /// Of the set that is applied: any but Unknown and Batch. Sequences do not run each other, so none can
    /// come back to itself.
    ESettingType type = ESettingType::Unknown;
    /// The set that is applied, in the form that recent lists store: "BUILT-IN:" and its key in the
    /// catalogue, or "FILE:" and a path.
    CStr settings{};
    int profiles = 1; ///< that ShowProfiles shows, 1 to 16

    friend bool operator==(const SBatchStep&, const SBatchStep&) = default;
};

/// Steps that are done one after the other with each measurement of a batch. The stored form is described in
/// docs/batch-sequence.md.
struct COMMONUI_API SBatchSequenceSettings {
    /// The most steps that a stored sequence may have.
    COMMONUI_CONSTANT std::size_t c_mostSteps = 256;

    std::vector<SBatchStep> steps{}; ///< in the order in which they are done

    /// Reads the section "Batch" of a set, which replaces this sequence. No file that a step names is opened.
    /// @return false, with the reason in the diagnostics and this sequence unchanged, for an unusable set
    bool Load(CInifile& ini);
    /// Writes the section "Batch" in place of what is in it. Both leave the current section selected.
    void Save(CInifile& ini) const;

    friend bool operator==(const SBatchSequenceSettings&, const SBatchSequenceSettings&) = default;
};

} // namespace CommonUI
