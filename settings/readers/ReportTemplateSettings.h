#pragma once

#include "../../common/Enum.h"
#include "../../common/ini/Inifile.h"
#include "../../export/Export.h"
#include "../../model/MeasureParameters.h"

#include <cstddef>
#include <vector>

namespace CommonUI
{

/// The kind of document that a report becomes.
enum class EReportFormat { Doc = 0, HTML = 1 };

/// How the pages lie.
enum class EReportOrientation { Portrait = 0, Landscape = 1 };

/// What one document of the report is about.
enum class EReportScope {
    Single = 0,     ///< one measurement
    Collection = 1, ///< the measurements that are open, side by side
    Batch = 2       ///< all measurements of a run of a batch sequence, each appended to the document
};

/// A part of a report.
enum class EReportBlock {
    Title = 0,
    Information = 1,          ///< name, time, instrument, range and number of points of the measurement
    Image = 2,                ///< the surface from above, with its colour scale
    View3D = 3,               ///< the surface in perspective
    CrossSection = 4,         ///< the profile along the line that is drawn in the image
    Profile = 5,              ///< the measured profile
    HeightHistogram = 6,      ///< how often each height occurs
    ForceCurve = 7,           ///< the force over the distance, approach and retraction
    ForceResults = 8,         ///< the table of the force curve analysis
    GrainImage = 9,           ///< the surface with its grains marked
    GrainTable = 10,          ///< a row for each grain
    GrainStatistics = 11,     ///< the statistics of all grains
    GrainHistogram = 12,      ///< how often each value of the first quantity occurs
    RoughnessParameters = 13, ///< the parameters that are on
    RoughnessStatistics = 14, ///< their statistics over the measurements of the report
    RoughnessChart = 15,      ///< one parameter over the measurements
    AbbottCurve = 16,         ///< the material ratio curve
    CalibrationResults = 17,  ///< the calibration factors with their deviations
    PitchChart = 18,          ///< the single pitches of an X,Y calibration
    StepHistogram = 19,       ///< the heights of a Z calibration's steps
    Comment = 20,             ///< a field for the reader's words
};

/// The kinds, with the names under which they are stored.
COMMONUI_API const CEnum<EReportFormat>& GetReportFormatEnum();
/// The orientations, with the names under which they are stored.
COMMONUI_API const CEnum<EReportOrientation>& GetReportOrientationEnum();
/// What documents are about, with the names under which that is stored.
COMMONUI_API const CEnum<EReportScope>& GetReportScopeEnum();
/// The blocks, with the names under which they are stored.
COMMONUI_API const CEnum<EReportBlock>& GetReportBlockEnum();

/// Which blocks a report has and how they are laid out. The stored form is described in
/// docs/report-template-settings.md; the user's own templates are documents instead, which no part of this
/// library reads.
struct COMMONUI_API SReportTemplateSettings {
    /// The most blocks that a stored template may have.
    COMMONUI_CONSTANT std::size_t c_mostBlocks = 64;

    EReportFormat format = EReportFormat::HTML;                    ///< of the document
    EReportOrientation orientation = EReportOrientation::Portrait; ///< of its pages
    EReportScope scope = EReportScope::Single;                     ///< one document for what
    int columns = 1;    ///< in which pictures stand side by side, 1 to 4; tables take the whole width
    double margin = 20; ///< of the page, in mm, 0 to 100
    CStr title{};       ///< of the title block; empty for the name of the measurement
    /// The quantities of the grain blocks; empty for those that are on in the grain analysis.
    std::vector<EMeasureParameters> grainQuantities{};
    std::vector<EReportBlock> blocks = {EReportBlock::Title}; ///< from top to bottom, at least one

    /// Reads the section "ReportTemplate" of a set, which replaces this template.
    /// @return false, with the reason in the diagnostics and this template unchanged, for an unusable set
    bool Load(CInifile& ini);
    /// Writes the section "ReportTemplate" in place of what is in it. Both leave the current section
    /// selected.
    void Save(CInifile& ini) const;

    friend bool operator==(const SReportTemplateSettings&, const SReportTemplateSettings&) = default;
};

} // namespace CommonUI
