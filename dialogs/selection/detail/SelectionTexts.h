#pragma once

namespace CommonUI::SelectionText
{

/// Texts of the string table in the dialogs in which parameters, curves, statistics and outputs are chosen.

constexpr int c_firstTab = 11001; // in the order of ESelectionTab
constexpr int c_caption = 11011;
constexpr int c_search = 11012;
constexpr int c_add = 11013;
constexpr int c_change = 11014;
constexpr int c_remove = 11015;
constexpr int c_format = 11016;
constexpr int c_defaults = 11017;
constexpr int c_stored = 11018;
constexpr int c_help = 11019;
constexpr int c_ok = 10261;
constexpr int c_firstColumn = 11021; // in the order of ESelectionColumn

constexpr int c_standardIs = 11031;
constexpr int c_unitIs = 11032;
constexpr int c_isTemplate = 11033;
constexpr int c_firstMark = 11034; // in the order of ESelectionMark, from Taken
constexpr int c_count = 11036;
constexpr int c_updated = 11038;
constexpr int c_found = 11039;

constexpr int c_noNumber = 11041;
constexpr int c_outOfRange = 11042;
constexpr int c_noWholeNumber = 11043;
constexpr int c_wrongOrder = 11044;
constexpr int c_exists = 11045;
constexpr int c_wrongBounds = 11046;
constexpr int c_hasFault = 11047;
constexpr int c_labelWithUnit = 11048;
constexpr int c_atLeast = 11049;

constexpr int c_firstOption = 11061; // in the order of ESelectionOption
constexpr int c_firstPreprocessing = 11081;

constexpr int c_addCaption = 11101;
constexpr int c_changeCaption = 11102;
constexpr int c_template = 11103;
constexpr int c_becomes = 11104;
constexpr int c_percentile = 11105;
constexpr int c_histogramCaption = 11106;
constexpr int c_histogram = 11107;
constexpr int c_firstHistogram = 11108; // in the order of EGrainHistograms
constexpr int c_lowerOn = 11111;
constexpr int c_lower = 11112;
constexpr int c_upperOn = 11113;
constexpr int c_upper = 11114;
constexpr int c_classes = 11115;
constexpr int c_classesAre = 11116;

constexpr int c_grainKind = 11121;
constexpr int c_grainThreshold = 11122;
constexpr int c_grainValue = 11123;
constexpr int c_grainArea = 11124;
constexpr int c_grainPoints = 11125;
constexpr int c_grainEdge = 11126;

} // namespace CommonUI::SelectionText
