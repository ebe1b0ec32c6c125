#pragma once

#include "../../common/Color.h"
#include "../../controls/MultiClosure.h"
#include "../../controls/Window.h"
#include "../../settings/factory/FolderScan.h"
#include "../../settings/factory/SettingsFactory.h"

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace CommonUI
{

/// Looks for the user's own sets of a type on a thread of its own, so that a folder on a drive that does not
/// answer keeps nobody waiting. The thread gets copies of the paths and posts what it finds to the message
/// loop of the process; it never touches the settings factory. For colour scales it then reads the files for
/// their colours.
///
/// All functions are called on the user-interface thread. The object goes before the message loop does; a
/// thread that the system still keeps waiting then ends unheard when it is let go.
class COMMONUI_API CCustomSettingsScan : public CWnd
{
public:
    /// Finds the files of a place; called on the worker's thread.
    using FFind = std::function<void(const CSettingsFactory::SPlace&, const FFolderFound&)>;
    /// Colours of a scale, c_colorCount of them from its lowest to its highest.
    using CColors = std::vector<SColor>;

    /// What has changed.
    enum class EEvent {
        FolderFound, ///< the last one of GetFolders has come in
        ColorsFound, ///< of some colour scales
        Replaced,    ///< another search than the first has ended, with other folders
        Ended,       ///< the search has ended, behind the other events
    };
    /// How many colours there are of a colour scale.
    COMMONUI_CONSTANT std::size_t c_colorCount = 64;

    /// Finds nothing before Start. @param type fixed for the object's life
    explicit CCustomSettingsScan(ESettingType type);
    /// @param find looks in place of FindFilesBelow
    CCustomSettingsScan(ESettingType type, FFind find);
    /// Does not wait for the thread, of which nothing comes in any more.
    ~CCustomSettingsScan();

    /// Looks, or looks again: GetFolders then keeps what was found before until the new search has ended. A
    /// search that is running goes on in its place, so that calls do not heap up threads.
    void Start();
    /// Whether a search has not ended yet; of colour scales it ends when the colours are read.
    bool IsRunning() const noexcept { return m_run != nullptr; }

    /// The type whose sets are looked for.
    ESettingType GetType() const noexcept { return m_type; }
    /// What has been found, in the order of menus.
    const std::vector<SFoundFolder>& GetFolders() const noexcept { return m_folders; }
    /// The colours of a file of a colour scale from its lowest to its highest; null as long as they are not
    /// known, and for what is no colour scale.
    const CColors* FindColors(const CStr& path) const;

    /// Told what has changed, on the user-interface thread.
    CMultiClosure1<void, EEvent>& GetEvents() noexcept { return m_events; }

private:
    struct SRun;
    using CColorTable = std::map<CStr, CColors>;

    void Add(SFoundFolder folder);
    void AddColors(const CColorTable& colors);
    void End();
    static void Work(const std::shared_ptr<SRun>& run);
    static void ReadColors(const std::shared_ptr<SRun>& run, const std::vector<CStr>& files);

    ESettingType m_type;
    FFind m_find;
    std::shared_ptr<SRun> m_run; // null while no search runs
    bool m_complete = false;     // a search has ended
    std::vector<SFoundFolder> m_folders;
    std::vector<SFoundFolder> m_next; // of another search than the first
    CColorTable m_colors;
    CMultiClosure1<void, EEvent> m_events;
};

} // namespace CommonUI
