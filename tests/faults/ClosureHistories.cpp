// Lists of callbacks beside sets of who listens to which. Who is called leaves, brings others, invokes anew,
// or destroys the list.

#include "controls/MultiClosure.h"
#include "tests/faults/Faults.h"
#include "tests/faults/Histories.h"

#include <array>
#include <memory>
#include <random>
#include <string>
#include <vector>

using namespace CommonUI;

namespace Faults
{

namespace
{

class CClosureGame
{
public:
    explicit CClosureGame(unsigned seed)
        : m_random(seed)
    {
    }

    void Play(int steps)
    {
        for (int i = 0; i < steps; ++i) {
            const auto action = m_random() % 8;
            if (action < 3)
                Change();
            else
                Invoke(m_random() % c_lists);
        }
    }

private:
    static constexpr std::size_t c_lists = 3;
    static constexpr std::size_t c_listeners = 7;
    using CList = CMultiClosure0<void>;

    struct SListener {
        explicit SListener(CClosureGame& owner)
            : game(owner)
        {
        }
        void OnEvent()
        {
            CClosureGame& all = game; // it may be gone below
            ++all.m_calls;
            ++calls;
            if (all.m_random() % 6 == 0 && all.m_depth < 3)
                all.Disturb();
        }

        CClosureGame& game;
        int calls = 0;
        std::size_t list = c_lists; // none
        CClosureConnection connection{};
    };

    // Subscribes anew, ends a subscription, or destroys who listens or a list.
    void Change()
    {
        auto& listener = m_listeners[m_random() % c_listeners];
        const auto action = m_random() % 6;
        if (action == 0) {
            listener.reset();
        } else if (action == 1) {
            const std::size_t list = m_random() % c_lists;
            m_lists[list] = std::make_unique<CList>();
            for (const auto& one : m_listeners)
                if (one && one->list == list)
                    one->list = c_lists;
        } else {
            if (!listener)
                listener = std::make_unique<SListener>(*this);
            listener->list = m_random() % c_lists;
            m_lists[listener->list]->Subscribe(*listener, &SListener::OnEvent, listener->connection);
        }
    }
    void Disturb()
    {
        m_isDisturbed = true;
        ++m_depth;
        if (m_random() % 2 == 0)
            Change();
        else
            m_lists[m_random() % c_lists]->Invoke();
        --m_depth;
    }
    // Of a call that nobody disturbs all hear, once; and there are as many afterwards as the model says.
    void Invoke(std::size_t list)
    {
        m_isDisturbed = false;
        m_calls = 0;
        for (const auto& one : m_listeners)
            if (one)
                one->calls = 0;
        m_lists[list]->Invoke();
        for (std::size_t i = 0; i < c_lists; ++i) {
            std::size_t count = 0;
            for (const auto& one : m_listeners) {
                const bool listens = one && one->list == i;
                count += listens ? 1U : 0U;
                Expect(m_isDisturbed || i != list || !listens || one->calls == 1, "who listens is not told");
            }
            Expect(m_lists[i]->GetCount() == count, "a list has " + std::to_string(m_lists[i]->GetCount()) +
                                                        " instead of " + std::to_string(count) +
                                                        " listeners");
            Expect(m_isDisturbed || i != list || m_calls == count, "others are told");
        }
    }

    std::mt19937 m_random;
    std::array<std::unique_ptr<CList>, c_lists> m_lists{std::make_unique<CList>(), std::make_unique<CList>(),
                                                        std::make_unique<CList>()};
    std::array<std::unique_ptr<SListener>, c_listeners> m_listeners{};
    std::size_t m_calls = 0;
    int m_depth = 0;
    bool m_isDisturbed = false;
};

} // namespace

void PlayClosures(unsigned seed, int steps)
{
    CClosureGame(seed).Play(steps);
}

} // namespace Faults
