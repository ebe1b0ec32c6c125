#include "settings/factory/detail/FolderScan.h"

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
constexpr int c_maximumDepth = 100;

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
    explicit CFolderScan(std::u16string_view masks)
        : m_masks(CStr(masks).Split(u"|"))
    {
    }

    // Adds what a folder has to the tree's root.
    // @param folder with a separator at its end
    // @param depth how many folders it is below the one that was asked for
    void Scan(const CStr& folder, CSimpleTree<CStr>& tree, int depth = 0)
    {
        if (depth > c_maximumDepth)
            return WarnOfSettings(u"Left out for its depth: \"" + folder + u'"');
        SContent content;
        try {
            // Each folder once: links may lead in a circle.
            if (!m_visited.insert(fs::canonical(ToPath(folder))).second)
                return;
            content = List(folder);
        } catch (const std::exception& error) {
            WarnOfSettings(u"Cannot look into \"" + folder + u"\": " + CStr::FromUtf8(error.what()));
        }
        Add(folder, content, tree, depth);
    }

private:
    SContent List(const CStr& folder) const
    {
        SContent content;
        for (const fs::directory_entry& item : fs::directory_iterator(ToPath(folder))) {
            CStr name;
            const bool isText = ToText(item.path().filename(), name);
            const bool isFile = Matches(name);
            std::error_code error; // of a link that leads nowhere
            if (!isText && (isFile || item.is_directory(error)))
                WarnOfSettings(u"Left out for its name, which is no text: \"" + folder + name + u'"');
            else if (isText && item.is_directory(error))
                content.folders.push_back({GetSortKey(name), name});
            else if (isText && isFile && item.is_regular_file(error))
                content.files.push_back({GetSortKey(name), name});
        }
        std::ranges::sort(content.folders);
        std::ranges::sort(content.files);
        return content;
    }

    void Add(const CStr& folder, const SContent& content, CSimpleTree<CStr>& tree, int depth)
    {
        for (const SName& below : content.folders) {
            CSimpleTree<CStr> branch(below.name);
            Scan(folder + below.name + static_cast<char16_t>(fs::path::preferred_separator), branch,
                 depth + 1);
            if (!branch.IsLeaf())
                tree.GetChildren().push_back(std::move(branch));
        }
        for (const SName& file : content.files)
            tree.GetChildren().emplace_back(folder + file.name);
    }

    bool Matches(std::u16string_view name) const
    {
        return std::ranges::any_of(m_masks, [&](const CStr& mask) { return MatchesMask(name, mask); });
    }

    std::vector<CStr> m_masks;
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

CSimpleTree<CStr> FindFilesBelow(const CStr& folder, std::u16string_view masks)
{
    CSimpleTree<CStr> tree;
    if (const CStr text = GetFolderText(folder); !text.IsEmpty())
        CFolderScan(masks).Scan(text, tree);
    return tree;
}

} // namespace CommonUI
