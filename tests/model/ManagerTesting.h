#pragma once

#include "common/Exceptions.h"
#include "model/AnalysisPreferencesManager.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace CommonUI
{

using CChanges = std::vector<SPreferencesChange>;

/// A manager that keeps what it tells of, and whose data can be changed.
class CWatchedManager : public CAnalysisPreferencesManager
{
public:
    CWatchedManager()
    {
        m_told.reserve(100); // so that listening needs no memory
        GetChangeList().Subscribe(*this, &CWatchedManager::OnChange, m_connection);
    }

    using CAnalysisPreferencesManager::_GetData;

    /// The changes since the last call.
    CChanges TakeChanges() { return std::exchange(m_told, {}); }

private:
    void OnChange(const SPreferencesChange& change) { m_told.push_back(change); }

    CChanges m_told;
    CClosureConnection m_connection;
};

/// Expects the exception of a number that does not exist.
template<class FCall>
void ExpectInternal(const FCall& call, const CStr& function, const CStr& message)
{
    try {
        call();
        ADD_FAILURE() << message.ToUtf8();
    } catch (const EInternal& error) {
        EXPECT_EQ(error.GetFunction(), function);
        EXPECT_EQ(error.GetMessageText(), message);
    }
}

} // namespace CommonUI
