#include "platform/files/FolderSource.h"

#include <algorithm>

namespace CommonUI
{

CFolderSource::~CFolderSource() = default;

bool CFolderSource::IsSeparator(char16_t unit) const
{
    return unit == u'/' || unit == GetSeparator();
}

// Where the part of a path behind a root begins; npos if it has another root.
std::size_t CFolderSource::FindBehindRoot(const CStr& path, const CStr& root) const
{
    if (!IsSameName(path.Left(root.GetLength()), root))
        return CStr::npos;
    const std::size_t length = root.GetLength();
    const bool isWhole =
        path.GetLength() == length || IsSeparator(root[length - 1]) || IsSeparator(path[length]);
    return isWhole ? length : CStr::npos;
}

std::vector<CStr> CFolderSource::SplitPath(const CStr& path) const
{
    std::vector<CStr> parts;
    for (const CStr& root : GetRoots())
        if (FindBehindRoot(path, root) != CStr::npos &&
            (parts.empty() || root.GetLength() > parts.front().GetLength()))
            parts = {root};
    if (parts.empty())
        return parts;
    CStr name;
    for (const char16_t unit : path.Mid(FindBehindRoot(path, parts.front())) + GetSeparator()) {
        if (!IsSeparator(unit)) {
            name += unit;
        } else if (!name.IsEmpty()) {
            parts.push_back(name);
            name.Clear();
        }
    }
    return parts;
}

CStr CFolderSource::JoinPath(const CStr& path, const CStr& name) const
{
    const bool isEnded = path.IsEmpty() || IsSeparator(path[path.GetLength() - 1]);
    return isEnded ? path + name : path + GetSeparator() + name;
}

} // namespace CommonUI
