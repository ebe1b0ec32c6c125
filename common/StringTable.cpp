#include "common/StringTable.h"

#include <algorithm>
#include <functional>
#include <mutex>
#include <unordered_map>

namespace CommonUI
{

namespace
{

// The installed texts. A reader that has seen `settled` needs no lock: nothing changes any more.
struct SInstalled {
    std::mutex mutex;
    bool settled = false;
    std::unordered_map<int, CStr> translated;
};

SInstalled& Installed()
{
    static SInstalled& installed = *new SInstalled;
    return installed;
}

const SInstalled& Settled()
{
    static const SInstalled& installed = [] {
        SInstalled& found = Installed();
        const std::lock_guard lock(found.mutex);
        found.settled = true;
        return std::ref(found);
    }();
    return installed;
}

} // namespace

CStr GetString(int id)
{
    const auto& translated = Settled().translated;
    if (const auto found = translated.find(id); found != translated.end())
        return found->second;
    const auto english = GetEnglishStringTable();
    const auto row = std::ranges::lower_bound(english, id, {}, &SStringTableRow::id);
    return row != english.end() && row->id == id ? CStr(row->text) : CStr();
}

bool ReplaceStringTable(std::span<const SStringTableRow> rows)
{
    SInstalled& installed = Installed();
    const std::lock_guard lock(installed.mutex);
    if (installed.settled)
        return false;
    installed.translated.clear();
    for (const SStringTableRow& row : rows)
        installed.translated[row.id] = CStr(row.text);
    return true;
}

} // namespace CommonUI
