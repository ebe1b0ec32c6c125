#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Faults
{

/// What an operation works on. It is made anew for each round.
class CState
{
public:
    CState() = default;
    CState(const CState&) = delete;
    CState& operator=(const CState&) = delete;
    virtual ~CState() = default;

    /// Returns false where the operation says that it has not done its work.
    virtual bool Act() = 0;
    /// All that can be seen of what it works on.
    virtual std::string Look() = 0;
    /// What it works on can still be used.
    virtual void Use() = 0;
};

struct SOperation {
    std::string name;
    std::function<std::unique_ptr<CState>()> make;
    bool keepsCaches = false; ///< and the memory for them
    bool mayBeInPart = false; ///< where nothing else is promised: it is in a state that can be used
    bool tellsItself = false; ///< where one allocation fails, nothing is thrown
    bool isInC = false;       ///< what libraries in C allocate fails, too
};

using COperations = std::vector<SOperation>;

/// Lets each allocation of an operation fail in turn: that one alone, and that one and all that come after.
/// @return how many have failed
long TryAllocations(const SOperation& operation);

template<class TObject>
class CWork : public CState
{
public:
    using FCheck = std::function<void(TObject&)>;

    CWork(const FCheck& prepare, std::function<bool(TObject&)> act, std::function<std::string(TObject&)> look,
          FCheck use)
        : m_act(std::move(act))
        , m_look(std::move(look))
        , m_use(std::move(use))
    {
        if (prepare)
            prepare(m_object);
    }
    bool Act() override { return m_act(m_object); }
    std::string Look() override { return m_look(m_object); }
    void Use() override
    {
        if (m_use)
            m_use(m_object);
    }

private:
    TObject m_object{};
    std::function<bool(TObject&)> m_act;
    std::function<std::string(TObject&)> m_look;
    FCheck m_use;
};

template<class TObject>
SOperation Operation(const std::string& name, std::function<void(TObject&)> prepare,
                     std::function<bool(TObject&)> act, std::function<std::string(TObject&)> look,
                     std::function<void(TObject&)> use = {})
{
    return {name, [=] { return std::make_unique<CWork<TObject>>(prepare, act, look, use); }};
}

/// For calls that have no answer.
template<class TObject, class FCall>
std::function<bool(TObject&)> Call(const FCall& call)
{
    return [call](TObject& object) {
        call(object);
        return true;
    };
}

void AddFormats(COperations& all);
void AddFactory(COperations& all);
void AddGrids(COperations& all);

} // namespace Faults
