#include "platform/files/FileManager.h"

#include "platform/memory/MemoryFileManager.h"

namespace CommonUI
{

namespace
{

CFileManager& GetManagerWithoutTrash()
{
    // Never destroyed, so that destructors of static objects may still ask.
    static CFileManager& manager = *new CMemoryFileManager({});
    return manager;
}

} // namespace

constinit CCurrentService<CFileManager> CFileManager::s_current(GetManagerWithoutTrash);

CFileManager::~CFileManager() = default;

CFileManager& GetFileManager()
{
    return CFileManager::s_current.Get();
}

} // namespace CommonUI
