#include "common/ini/StoreAccount.h"

#include "common/ini/detail/StoreTexts.h"
#include "common/StringTable.h"

namespace CommonUI
{

namespace
{

CStr DescribeDamage(const SStoreAccount& account)
{
    if (!account.keptAs.IsEmpty())
        return CStr::Format(GetString(c_isRepaired), account.fileName, account.reason, account.keptAs);
    if (!account.noRepair.IsEmpty())
        return CStr::Format(GetString(c_cannotBeRepaired), account.fileName, account.reason,
                            account.noRepair);
    return CStr::Format(GetString(c_hasNoBackup), account.fileName, account.reason);
}

} // namespace

std::vector<CStr> SStoreAccount::GetSentences() const
{
    std::vector<CStr> sentences;
    if (found == EFound::Unreadable)
        sentences.push_back(CStr::Format(GetString(c_cannotBeRead), fileName, reason));
    if (found == EFound::Damaged)
        sentences.push_back(DescribeDamage(*this));
    if (version > programVersion)
        sentences.push_back(CStr::Format(GetString(c_isNewer), fileName, version, programVersion));
    if (!earlierKeptAs.IsEmpty())
        sentences.push_back(CStr::Format(GetString(c_earlierIsKept), fileName, earlierKeptAs));
    return sentences;
}

} // namespace CommonUI
