#pragma once

#include "model/AnalysisPreferencesData.h"
#include "model/detail/AnalysisDefaults.h"
#include "model/Preference.h"

#include <tuple>

namespace CommonUI
{

struct SOldKey;

template<>
inline constexpr int c_storedNumbers<ERoughnessPreprocessingOptions> = 4;

/// The values besides the lists, for defaults, loading and saving, in two parts, because the lists stand
/// between them in the file.
struct CAnalysisPreferencesData::SStored {
    using CData = CAnalysisPreferencesData;

    static constexpr auto BeforeLists(const SAnalysisDefaults& defaults)
    {
        return std::tuple{SPreference{u"WriteToFile", &CData::m_writeToFile, defaults.writeToFile},
                          SPreference{u"WriteToDB", &CData::m_writeToDB, defaults.writeToDB}};
    }
    static constexpr auto BehindLists(const SAnalysisDefaults& defaults)
    {
        return std::tuple{SPreference{u"UnitString", &CData::m_unit, defaults.heightUnit},
                          SPreference{u"Preprocessing", &CData::m_preprocessing, defaults.preprocessing}};
    }

    /// Reads one value of the earlier layout, of which the section has the key.
    static void ReadOld(CData& data, const CInifile& ini, const SOldKey& row);
};

} // namespace CommonUI
