#pragma once

#include "../../export/Export.h"
#include "ProcessStep.h"

namespace CommonUI::Measurement
{

/// Reads a batch sequence as steps of an open surface, with the sets that they apply. Steps that are not for
/// the surface, such as reports, come along and do nothing to it.
/// @throws ERequest where one of the sets cannot be read or used
COMMONUIMEASUREMENT_API CProcessSteps LoadSequence(CSettingsFactory& factory, CInifile& sequence,
                                                   const CStr& name);

/// Writes the steps that are on as a batch sequence, which has the same steps when it is read. An edited step
/// gets a set of its own, a file beside that of the sequence with its name and the step's number. All files
/// come into being together or none does; other files stay. Of those that the sequence got so before, which
/// it says, one is replaced unless a step that is not edited refers to it.
/// @param path of the file; one that is there is replaced
/// @throws ERequest where no step is on or more than a sequence may have, and where a file cannot be written,
///     with the reason
COMMONUIMEASUREMENT_API void SaveSequence(const CProcessSteps& steps, const CStr& path);

} // namespace CommonUI::Measurement
