#include "platform/FileDialogService.h"

#include "common/PathText.h"
#include "platform/memory/MemoryFileDialogService.h"

#include <utility>

namespace CommonUI
{

namespace
{

// The text without its last part, if that has masks in brackets.
CStr WithoutMasks(const CStr& text)
{
    const std::size_t bracket = text.ReverseFind(u'(');
    const bool masks = bracket != CStr::npos && text.EndsWith(u")") && text.Find(u'*', bracket) != CStr::npos;
    return text.Left(masks ? bracket : CStr::npos).Trim();
}

std::vector<CStr> ParseMasks(const CStr& joined)
{
    std::vector<CStr> masks;
    for (const CStr& part : joined.Split(u";")) {
        CStr mask = part.Trim();
        if (!mask.IsEmpty())
            masks.push_back(std::move(mask));
    }
    return masks;
}

} // namespace

std::vector<SFileFilter> ParseFileFilters(const CStr& filter)
{
    const std::vector<CStr> parts = filter.Split(u"|");
    std::vector<SFileFilter> filters;
    for (std::size_t i = 0; i + 1 < parts.size(); i += 2) {
        SFileFilter pair{WithoutMasks(parts[i]), ParseMasks(parts[i + 1])};
        if (!pair.masks.empty())
            filters.push_back(std::move(pair));
    }
    return filters;
}

const CFileDialogMemory::SPlace* CFileDialogMemory::Find(const CStr& key) const
{
    const auto found = m_places.find(key);
    return found == m_places.end() ? nullptr : &found->second;
}

void CFileDialogMemory::Remember(const CStr& key, const CStr& path)
{
    m_places[key] = {CStr(GetFolder(path)), CStr(GetFileName(path))};
}

bool CFileDialogMemory::Load(CInifile& ini)
{
    Clear();
    ini.SelectSection(c_section);
    for (const CStr& key : ini.GetKeys()) {
        if (const CStr path = ini.ReadText(key); !path.IsEmpty())
            Remember(key, path);
    }
    return true;
}

bool CFileDialogMemory::Save(CInifile& ini) const
{
    ini.SelectSection(c_section);
    ini.ClearSection();
    for (const auto& [key, place] : m_places)
        ini.WriteText(key, place.folder + place.file);
    return true;
}

constinit CCurrentService<CFileDialogService> CFileDialogService::s_current(GetSilentFileDialogService);

CFileDialogService::~CFileDialogService() = default;

bool CFileDialogService::Choose(const SFileDialog& dialog, CStr& path)
{
    SFileDialog shown = dialog;
    if (const CFileDialogMemory::SPlace* place = m_memory.Find(dialog.memoryKey)) {
        shown.folder = dialog.isFolder ? place->folder + place->file : place->folder;
        if (shown.file.IsEmpty() && !dialog.isFolder)
            shown.file = place->file;
    }
    CStr chosen;
    if (!Show(shown, chosen))
        return false;
    if (!dialog.memoryKey.IsEmpty())
        m_memory.Remember(dialog.memoryKey, chosen);
    path = chosen;
    return true;
}

CFileDialogService& GetSilentFileDialogService()
{
    static CFileDialogService& service = *new CMemoryFileDialogService;
    return service;
}

CFileDialogService& GetFileDialogService()
{
    return CFileDialogService::s_current.Get();
}

} // namespace CommonUI
