#pragma once

#include "common/PathText.h"
#include "settings/SettingsEntry.h"

namespace CommonUI
{

/// The path by which a set is known: one backslash at the end of a path is no part of it.
inline CStr WithoutLastBackslash(const CStr& path)
{
    return path.EndsWith(u"\\") ? path.Left(path.GetLength() - 1) : path;
}

/// Gives an entry for a file the path by which the set is known, and the name that goes with it.
inline void DropLastBackslash(SSettingsEntry& entry)
{
    if (!entry.m_IsFile || !entry.m_File.EndsWith(u"\\"))
        return;
    entry.m_File = WithoutLastBackslash(entry.m_File);
    // With the backslash there was no name in the path; one that somebody chose stays.
    if (entry.m_Name.IsEmpty())
        entry.m_Name = GetFileName(entry.m_File);
}

} // namespace CommonUI
