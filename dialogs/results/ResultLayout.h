#pragma once

#include "../../common/Str.h"
#include "../../common/Unit.h"
#include "../../controls/MultiClosure.h"
#include "../../export/Export.h"
#include "../../model/Parameter.h"
#include "../../output/results/NumberProfile.h"
#include "../../settings/preferences/BaseViewManager.h"

#include <array>
#include <map>
#include <optional>
#include <string_view>

namespace CommonUI
{

/// What the user has chosen in place of something that the analysis gives, and in place of what: when the
/// analysis gives something else, that is newer and counts.
template<class TValue>
struct SReplacedChoice {
    TValue chosen{};   ///< what the user wants
    TValue replaced{}; ///< what the analysis gave when the user chose

    bool operator==(const SReplacedChoice& other) const = default;
};

/// What the user has chosen about a quantity, or about another column of a table, which has a width alone.
struct SColumnLayout {
    std::optional<SReplacedChoice<CUnit::EUnitFactor>> unit{}; ///< nothing where the analysis says it
    std::optional<SReplacedChoice<CParameter::SFormatSpecifier>> format{}; ///< likewise
    bool isHidden = false; ///< whether the user has hidden the quantity
    int width = 0; ///< in hundredths of the height of a line; 0 where the column is as wide as it needs to be

    bool operator==(const SColumnLayout& other) const = default;
};

/// How the user wants to see results.
struct SResultLayout {
    std::optional<bool> isTransposed{}; ///< nothing where the results say it
    bool showsNotes = true;             ///< whether the reasons of empty cells stand below the tables
    char16_t separator = u'\t';         ///< of cells for spreadsheets: a tab, a comma or a semicolon
    char16_t decimal = u'.';            ///< likewise in front of decimals: a point or a comma
    /// Of summary, results and statistics, in hundredths of the height of a line; 0 where they share the room
    /// by themselves.
    std::array<int, 3> heights{};
    /// By the keys of the quantities; other columns have keys that are none of a quantity.
    std::map<CStr, SColumnLayout> columns{};

    /// How numbers are written in texts of a kind: for spreadsheets with the signs chosen here.
    SNumberProfile GetProfile(ENumberProfile kind) const;
    bool operator==(const SResultLayout& other) const = default;
};

class CResultPanel;

/// A layout that has been changed.
struct SResultLayoutChange {
    /// What is to be shown anew.
    enum class EPart {
        Tables, ///< anything, such as units and hidden quantities
        State,  ///< whether notes are shown, and what spreadsheets get
        Sizes   ///< widths and heights
    };

    CStr name{};                          ///< of the results
    EPart part = EPart::Tables;           ///< of the layout
    const CResultPanel* origin = nullptr; ///< the panel whose user has changed it; null for none
};

/// The layouts of results by the names of their sets, from one start of the application to the next. The
/// section and its values are described in docs/result-dialog.md. User-interface thread only.
class COMMONUI_API CResultLayoutManager : public CBaseViewManager
{
public:
    /// The section that Load and Save use.
    COMMONUI_CONSTANT std::u16string_view c_section = u"ResultDialog";

    /// The layout of results of that name, made when it is first asked for. It stays where it is in memory,
    /// also when layouts are loaded or cleared.
    SResultLayout& Get(const CStr& name) { return m_layouts[name]; }
    /// Gives all results the layout that they have by default.
    void Clear();

    /// Listeners to changed layouts.
    using CChangeList = CMultiClosure1<void, const SResultLayoutChange&>;
    /// Called after a panel has changed a layout, and for each layout when layouts are loaded or cleared. Who
    /// changes what Get gives calls it.
    CChangeList& GetChangeList() noexcept { return m_changes; }

    /// Replaces what is remembered by what the section holds. What is no layout is left out, with a line in
    /// the diagnostics. @return true always
    bool Load(CInifile& ini) override;
    /// Replaces the section's layouts; words that are none stay. @return true always
    bool Save(CInifile& ini) override;

private:
    void AnnounceAll();

    std::map<CStr, SResultLayout> m_layouts;
    CChangeList m_changes;
};

/// The one manager of the process, made on the first call and never destroyed.
COMMONUI_API CResultLayoutManager& GetResultLayoutManager();

} // namespace CommonUI
