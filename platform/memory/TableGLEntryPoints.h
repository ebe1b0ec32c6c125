#pragma once

#include "../GLEntryPoints.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace CommonUI
{

/// Entry points from a table, for machines without the window system and for tests.
class COMMONUI_API CTableGLEntryPoints : public CGLEntryPoints
{
public:
    FProcedure GetProcedure(const char* name) override;

    /// Offers a function under a name, in place of one that had it before. Its type must be the one that goes
    /// with the name.
    template<class TResult, class... TArgs>
    void Set(std::string_view name, TResult (*function)(TArgs...))
    {
        m_procedures.insert_or_assign(std::string(name), reinterpret_cast<FProcedure>(function));
    }
    /// Takes a function away; nothing happens where there is none of the name.
    void Remove(std::string_view name);

private:
    std::map<std::string, FProcedure, std::less<>> m_procedures;
};

} // namespace CommonUI
