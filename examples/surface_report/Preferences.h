#pragma once

#include "examples/surface_report/Options.h"

#include "model/AnalysisPreferencesManager.h"

#include <string>

namespace SurfaceReport
{

/// The section under which the program keeps the preferences of all analyses in its file.
constexpr std::u16string_view c_section = u"SurfaceReport";

/// Loads the preferences from the options' file, changes them as the options say, and saves them when the
/// file is not there yet or something was changed. What the file holds besides stays as it is.
/// @throws EUsage for a change that cannot be made; nothing is saved then
/// @throws std::runtime_error when the file cannot be read or written
void LoadPreferences(CommonUI::CAnalysisPreferencesManager& manager, const SOptions& options);

/// Makes one change:
/// - `Sa=on`, `Sa=off`: a parameter of the analyses, or a statistic, by key
/// - `Fractile=on:95`: a statistic with its value
/// - `Sch=on:95`: a parameter of its own from a template, with the values of its variables, in m or percent;
/// `Sch=off`
///   removes them all
/// - `Sq.unit=um`, `Sq.format=Digits:4`, `Decimals:3` or `Integer`: how values are shown, those of parameters
/// made from
///   a template as well
///
/// It applies to every analysis that has the key: image roughness, profile roughness and grains. Where a key
/// is that of a parameter and of a statistic, `statistic.Count=off` means the statistic.
/// @throws EUsage
void EditPreferences(CommonUI::CAnalysisPreferencesManager& manager, const std::string& change);

} // namespace SurfaceReport
