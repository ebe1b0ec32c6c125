#pragma once

#include "measurement/ApplySteps.h"
#include "measurement/ReportTables.h"
#include "measurement/Results.h"

#include <memory>
#include <string>

namespace Python
{

/// The results of an analysis with the surface that they refer to.
class CScriptResults
{
public:
    /// Computes. Any thread may call, without Python's lock.
    CScriptResults(CommonUI::Measurement::SInput input, const CommonUI::Measurement::SChoices& choices);

    const CommonUI::Measurement::SInput& GetInput() const noexcept { return *m_input; }
    const CommonUI::Measurement::SResults& Get() const noexcept { return m_tables.GetResults(); }
    const CommonUI::Measurement::CReportTables& GetTables() const noexcept { return m_tables; }
    /// The tables with parameters as columns where others have them as rows.
    CommonUI::Measurement::CReportTables MakeTransposed() const { return {Get(), true}; }
    /// The page with or without pictures.
    std::string MakeHtml(bool isTransposed, bool hasPictures) const;

private:
    std::shared_ptr<const CommonUI::Measurement::SInput> m_input; // stays where it is when this is moved
    CommonUI::Measurement::SMethod m_method;
    CommonUI::Measurement::CReportTables m_tables;
};

} // namespace Python
