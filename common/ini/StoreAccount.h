#pragma once

#include "../../export/Export.h"
#include "../Str.h"

#include <vector>

namespace CommonUI
{

/// What a store has found where its file should be, what it has taken instead and what it has kept, for the
/// application to show.
struct COMMONDLL_API SStoreAccount {
    /// What was there.
    enum class EFound {
        Nothing,   ///< there is no file
        Whole,     ///< the file has been loaded
        Damaged,   ///< the file is damaged; see `keptAs`
        Unreadable ///< the file cannot be read
    };

    CStr fileName{};                ///< the file of the store
    EFound found = EFound::Nothing; ///< at the last load
    CStr reason{};                  ///< why it cannot be read, or what is damaged
    /// Where the damaged file is now, and its last whole version in its place. Empty where the damaged file
    /// stays what it is, nothing is loaded and nothing can be saved.
    CStr keptAs{};
    CStr noRepair{};        ///< why there is no repair though there is a whole version; else empty
    int version = 0;        ///< of the file that was loaded; 0 where it tells of none
    int programVersion = 0; ///< that the program writes
    CStr earlierKeptAs{};   ///< where the file of an earlier version is kept, when it is saved
    /// Why what was loaded could not be kept beside the file, as in a folder that is read only. Nothing is
    /// wrong with the file; it is in no sentence.
    CStr noBackup{};
    /// Whether the last save has brought what other programs have changed into the document, from which the
    /// program then loads again what it holds besides.
    bool hasOthers = false;

    /// What people should know, in sentences; none where all is well.
    std::vector<CStr> GetSentences() const;
};

} // namespace CommonUI
