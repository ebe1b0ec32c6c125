#include "controls/folders/FolderCombo.h"

#include "common/PathText.h"
#include "common/StringTable.h"
#include "controls/lists/TextOrder.h"

#include <algorithm>
#include <utility>

namespace CommonUI
{

namespace
{

using EKind = SFolderChoice::EKind;

constexpr int c_noRoot = 11453;

} // namespace

CFolderCombo::CFolderCombo(std::shared_ptr<const CFolderSource> source)
    : m_lister(std::move(source))
{
}

CFolderCombo::~CFolderCombo() = default;

// The path as the library writes it; empty where it has no root.
CStr CFolderCombo::Normalise(const CStr& text) const
{
    CStr path;
    for (const CStr& part : m_lister.GetSource().SplitPath(text.Trim()))
        path = m_lister.GetSource().JoinPath(path, part);
    return path;
}

void CFolderCombo::StopChecking()
{
    m_lister.Cancel(std::exchange(m_check, 0));
    m_error.Clear();
}

void CFolderCombo::SetPath(const CStr& path)
{
    StopChecking();
    m_path = path;
    m_changed.Invoke();
}

std::vector<SFolderChoice> CFolderCombo::GetChoices() const
{
    std::vector<SFolderChoice> choices;
    for (const CStr& recent : m_recent.GetAll())
        choices.push_back({recent, EKind::Recent});
    const CFolderSource& source = m_lister.GetSource();
    const std::vector<CStr> way = source.SplitPath(m_path);
    CStr path;
    for (std::size_t i = 0; i < way.size(); ++i) {
        path = source.JoinPath(path, way[i]);
        choices.push_back({path, i == 0 ? EKind::Root : EKind::Parent, static_cast<int>(i)});
    }
    for (const CStr& root : source.GetRoots())
        if (way.empty() || root != way.front())
            choices.push_back({root, EKind::Root});
    return choices;
}

void CFolderCombo::OnUserTyped(const CStr& text)
{
    const CStr folder = Normalise(CStr(GetFolder(text)));
    m_typed = GetFileName(text);
    if (folder != m_listedFolder) {
        m_lister.Cancel(std::exchange(m_list, 0));
        m_names.clear();
        m_listedFolder = folder;
        if (!folder.IsEmpty())
            m_list = m_lister.List(folder, [this](const SFolderListing& listing) { OnListed(listing); });
    }
    Complete();
}

void CFolderCombo::OnListed(const SFolderListing& listing)
{
    m_list = 0;
    for (const SFolder& folder : listing.folders)
        m_names.push_back(folder.name);
    std::ranges::sort(
        m_names, [](const CStr& one, const CStr& other) { return std::is_lt(CompareNatural(one, other)); });
    Complete();
}

// Hidden folders come up when their full stop, or more, has been typed.
void CFolderCombo::Complete()
{
    std::vector<CStr> completions;
    for (const CStr& name : m_names) {
        const bool begins = IsSameFolded(name.Left(m_typed.GetLength()), m_typed);
        if (begins && (!m_typed.IsEmpty() || !name.StartsWith(u".")))
            completions.push_back(m_lister.GetSource().JoinPath(m_listedFolder, name));
    }
    if (std::exchange(m_completions, completions) != completions)
        m_completionsChanged.Invoke();
}

void CFolderCombo::OnUserEntered(const CStr& text)
{
    StopChecking();
    const CStr path = Normalise(text);
    if (path.IsEmpty())
        m_error = CStr::Format(GetString(c_noRoot), text.Trim());
    else
        m_check = m_lister.List(
            path, [this, path](const SFolderListing& listing) { OnChecked(path, listing.error); });
    m_changed.Invoke();
}

void CFolderCombo::OnChecked(const CStr& path, const CStr& error)
{
    m_check = 0;
    m_error = error;
    const bool isOther = error.IsEmpty() && std::exchange(m_path, path) != path;
    if (error.IsEmpty())
        m_recent.Add(path);
    const CWatch watch(*this);
    m_changed.Invoke();
    if (const auto closure = watch.IsGone() || !isOther ? nullptr : m_slot.Share<void, const CStr&>())
        closure->Invoke(path);
}

} // namespace CommonUI
