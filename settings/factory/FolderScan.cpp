#include "settings/factory/FolderScan.h"

#include "common/file/FileSystem.h"
#include "common/PathText.h"
#include "settings/factory/detail/FileMask.h"
#include "settings/factory/detail/NameOrder.h"
#include "settings/factory/detail/SettingsWarning.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <system_error>

namespace CommonUI
{

namespace
{

namespace fs = std::filesystem;

// Nobody's sets lie deeper, and thousands of nested folders would exhaust the stack and the user's patience.
constexpr std::size_t c_maximumDepth = 100;

struct SName {
    std::u16string sortKey;
    CStr name;
    auto operator<=>(const SName&) const = default;
};

// The folders and matching files of one folder, in the order of menus.
struct SContent {
    std::vector<SName> folders;
    std::vector<SName> files;
};

class CFolderScan
{
public:
    CFolderScan(std::u16string_view masks, const FFolderFound& found)
        : m_masks(CStr(masks).Split(u"|"))
        , m_found(found)
    {
    }

    // Tells of what a folder has, and of the names by which it is below the first one.
    // @param folder with a separator at its end
    // @return false to look no further
    bool Scan(const CStr& folder)
    {
        if (m_names.size() > c_maximumDepth) {
            WarnOfSettings(u"Left out for its depth: \"" + folder + u'"');
            return true;
        }
        SContent content;
        try {
            // Each folder once: links may lead in a circle.
            if (!m_visited.insert(GetFileSystem().Resolve(ToPath(folder))).second)
                return true;
            content = List(folder);
        } catch (const std::exception& error) {
            WarnOfSettings(u"Cannot look into \"" + folder + u"\": " + CStr::FromUtf8(error.what()));
        }
        return ScanBelow(folder, content.folders) && Tell(folder, content.files);
    }

private:
    SContent List(const CStr& folder) const
    {
        SContent content;
        const fs::path place = ToPath(folder);
        GetFileSystem().List(place, [&](const fs::path& item) {
            if (item == "." || item == "..")
                return;
            CStr name;
            const bool isText = ToText(item, name);
            const bool isFile = Matches(name);
            // By its text, as joining paths without memory ends the process in one of the standard libraries.
            std::error_code error; // of a link that leads nowhere, and of what has gone meanwhile
            const fs::file_type type = fs::status(place.native() + item.native(), error).type();
            const bool isFolder = type == fs::file_type::directory;
            if (!isText && (isFile || isFolder))
                WarnOfSettings(u"Left out for its name, which is no text: \"" + folder + name + u'"');
            else if (isText && isFolder)
                content.folders.push_back({GetSortKey(name), name});
            else if (isText && isFile && type == fs::file_type::regular)
                content.files.push_back({GetSortKey(name), name});
        });
        std::ranges::sort(content.folders);
        std::ranges::sort(content.files);
        return content;
    }

    bool ScanBelow(const CStr& folder, const std::vector<SName>& folders)
    {
        for (const SName& below : folders) {
            m_names.push_back(below.name);
            if (!Scan(folder + below.name + static_cast<char16_t>(fs::path::preferred_separator)))
                return false;
            m_names.pop_back();
        }
        return true;
    }

    bool Tell(const CStr& folder, const std::vector<SName>& files) const
    {
        if (files.empty())
            return true;
        SFoundFolder found{.names = m_names};
        found.files.reserve(files.size());
        for (const SName& file : files)
            found.files.push_back(folder + file.name);
        return m_found(std::move(found));
    }

    bool Matches(std::u16string_view name) const
    {
        return std::ranges::any_of(m_masks, [&](const CStr& mask) { return MatchesMask(name, mask); });
    }

    std::vector<CStr> m_masks;
    const FFolderFound& m_found;
    std::vector<CStr> m_names; // of the folder in hand
    std::set<fs::path> m_visited;
};

// The text of a folder with a separator at its end; empty when it has none or the folder does not exist.
CStr GetFolderText(const CStr& folder)
{
    CStr text;
    try {
        const fs::path path = ToPath(folder);
        return fs::is_directory(path) && ToText(path / "", text) ? text : CStr();
    } catch (const std::exception& error) {
        WarnOfSettings(u"Cannot look into \"" + folder + u"\": " + CStr::FromUtf8(error.what()));
        return {};
    }
}

} // namespace

void FindFilesBelow(const CStr& folder, std::u16string_view masks, const FFolderFound& found)
{
    if (const CStr text = GetFolderText(folder); !text.IsEmpty())
        CFolderScan(masks, found).Scan(text);
}

void AddFoundFolder(const SFoundFolder& found, CSimpleTree<CStr>& tree)
{
    CSimpleTree<CStr>* node = &tree;
    for (const CStr& name : found.names) {
        // Folders come one after the other, and before files.
        std::vector<CSimpleTree<CStr>>& below = node->GetChildren();
        if (below.empty() || below.back().IsLeaf() || below.back().GetValue() != name)
            below.emplace_back(name);
        node = &below.back();
    }
    for (const CStr& file : found.files)
        node->GetChildren().emplace_back(file);
}

} // namespace CommonUI
