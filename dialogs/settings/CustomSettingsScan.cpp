#include "dialogs/settings/CustomSettingsScan.h"

#include "analysis/numeric/DetachedThread.h"
#include "common/Diagnostics.h"
#include "common/file/FileBytes.h"
#include "platform/MessageLoop.h"
#include "settings/readers/ColorScale.h"

#include <exception>
#include <mutex>
#include <system_error>
#include <utility>

namespace CommonUI
{

namespace
{

// So many colour scales come in one message.
constexpr std::size_t c_batch = 32;

void FindInPlace(const CSettingsFactory::SPlace& place, const FFolderFound& found)
{
    FindFilesBelow(place.folder, place.masks, found);
}

void Warn(const std::exception& error)
{
    GetDiagnostics().Write(u"SettingsMenu", EDiagnosticLevel::Warning,
                           u"Cannot look for settings: " + CStr::FromUtf8(error.what()));
}

// None for what is no colour scale.
CCustomSettingsScan::CColors ReadScale(const CStr& path)
{
    std::string bytes;
    CStr reason;
    CInifile ini;
    SColorScale scale;
    if (!ReadFileBytes(path, bytes, CSettingsFactory::c_maximumFileSize, reason))
        return {};
    ini.LoadBytes(std::move(bytes));
    return scale.Load(ini) ? scale.MakeTable(CCustomSettingsScan::c_colorCount)
                           : CCustomSettingsScan::CColors();
}

} // namespace

// What a thread shares with who has started it, and keeps when that one is gone.
struct CCustomSettingsScan::SRun {
    ESettingType type;
    CSettingsFactory::SPlace place;
    FFind find;
    CCustomSettingsScan* owner; // user-interface thread only; null when nobody listens
    std::mutex mutex;           // of the loop
    CMessageLoop* loop;         // null when nobody listens

    // Has a message handled, on the user-interface thread. @return false when nobody listens
    static bool Post(const std::shared_ptr<SRun>& run, std::function<void(CCustomSettingsScan&)> message)
    {
        const std::lock_guard lock(run->mutex);
        if (!run->loop)
            return false;
        run->loop->Post([run, message = std::move(message)] {
            if (run->owner)
                message(*run->owner);
        });
        return true;
    }
    void Abandon()
    {
        owner = nullptr;
        const std::lock_guard lock(mutex);
        loop = nullptr;
    }
};

CCustomSettingsScan::CCustomSettingsScan(ESettingType type)
    : CCustomSettingsScan(type, FindInPlace)
{
}

CCustomSettingsScan::CCustomSettingsScan(ESettingType type, FFind find)
    : m_type(type)
    , m_find(std::move(find))
{
}

CCustomSettingsScan::~CCustomSettingsScan()
{
    if (m_run)
        m_run->Abandon();
}

void CCustomSettingsScan::Start()
{
    if (m_run)
        return;
    m_next.clear();
    m_run.reset(new SRun{.type = m_type,
                         .place = CSettingsFactory::GetCustomPlace(m_type),
                         .find = m_find,
                         .owner = this,
                         .mutex = {},
                         .loop = &GetMessageLoop()});
    try {
        // Nobody can wait for a thread that waits for a drive.
        Analysis::StartDetachedThread([run = m_run] { Work(run); });
    } catch (const std::system_error& error) {
        Warn(error);
        End();
    }
}

// On the thread of the search.
void CCustomSettingsScan::Work(const std::shared_ptr<SRun>& run)
{
    try {
        std::vector<CStr> files;
        run->find(run->place, [&](SFoundFolder folder) {
            if (run->type == ESettingType::ColorScale)
                files.insert(files.end(), folder.files.begin(), folder.files.end());
            return SRun::Post(run,
                              [folder = std::move(folder)](CCustomSettingsScan& scan) { scan.Add(folder); });
        });
        ReadColors(run, files);
    } catch (const std::exception& error) {
        Warn(error);
    }
    SRun::Post(run, [](CCustomSettingsScan& scan) { scan.End(); });
}

// On the thread of the search.
void CCustomSettingsScan::ReadColors(const std::shared_ptr<SRun>& run, const std::vector<CStr>& files)
{
    CColorTable colors;
    for (std::size_t i = 0; i < files.size(); ++i) {
        colors[files[i]] = ReadScale(files[i]);
        const bool isFull = colors.size() == c_batch || i + 1 == files.size();
        if (isFull && !SRun::Post(run, [batch = std::exchange(colors, {})](CCustomSettingsScan& scan) {
                scan.AddColors(batch);
            }))
            return;
    }
}

void CCustomSettingsScan::Add(SFoundFolder folder)
{
    if (m_complete) {
        m_next.push_back(std::move(folder));
        return;
    }
    m_folders.push_back(std::move(folder));
    m_events.Invoke(EEvent::FolderFound);
}

void CCustomSettingsScan::AddColors(const CColorTable& colors)
{
    for (const auto& [path, table] : colors)
        m_colors.insert_or_assign(path, table);
    m_events.Invoke(EEvent::ColorsFound);
}

void CCustomSettingsScan::End()
{
    m_run.reset();
    const CWatch watch(*this);
    if (std::exchange(m_complete, true) && m_folders != m_next) {
        m_folders = std::exchange(m_next, {});
        m_events.Invoke(EEvent::Replaced);
    }
    if (!watch.IsGone())
        m_events.Invoke(EEvent::Ended);
}

const CCustomSettingsScan::CColors* CCustomSettingsScan::FindColors(const CStr& path) const
{
    const auto found = m_colors.find(path);
    return found == m_colors.end() || found->second.empty() ? nullptr : &found->second;
}

} // namespace CommonUI
