#include "controls/MultiClosure.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <vector>

using namespace CommonUI;

namespace
{

struct SThrown {
};

class CPlay;

// A subscriber that has the game go on when it is called.
struct SPlayer {
    void OnEvent();

    CPlay& play;
    CClosureConnection connection{};
    int subscription = 0; // which one of the game, counted from 1
};

// Random operations on a list, before, during and inside calls, beside a model: the numbers of the living
// subscriptions in order, and for each call in progress the numbers that it has still to reach.
class CPlay
{
public:
    explicit CPlay(unsigned int seed)
        : m_random(seed)
    {
    }

    void Run()
    {
        for (int round = 0; round < 60; ++round) {
            if (!m_list)
                m_list = std::make_unique<CMultiClosure0<void>>();
            m_budget = 40;
            try {
                Act();
            } catch (const SThrown&) {
            }
            ASSERT_EQ(m_list ? m_list->GetCount() : 0, m_living.size());
            for (const auto& player : m_players)
                ASSERT_EQ(player->connection.IsConnected(),
                          std::ranges::count(m_living, player->subscription) > 0);
        }
    }

    void OnCalled(int subscription)
    {
        ASSERT_FALSE(m_calls.back().empty());
        ASSERT_EQ(m_calls.back().front(), subscription);
        m_calls.back().erase(m_calls.back().begin());
        for (auto actions = m_random() % 3; actions > 0; --actions)
            Act();
    }

private:
    void Act()
    {
        const auto action = m_random() % 16;
        if (--m_budget < 0)
            return;
        if (action == 0)
            DestroyList();
        else if (action == 1)
            throw SThrown();
        else if (action < 5)
            Call();
        else if (action < 12 || m_players.empty())
            Subscribe(*m_players.emplace_back(new SPlayer{*this}));
        else
            Trouble(m_players[m_random() % m_players.size()], action);
    }

    void Trouble(std::unique_ptr<SPlayer>& player, std::mt19937::result_type action)
    {
        if (action == 12)
            return Subscribe(*player);
        Forget(*player);
        if (action == 13)
            return player->connection.Disconnect();
        std::swap(player, m_players.back());
        m_players.pop_back();
    }

    void Subscribe(SPlayer& player)
    {
        if (!m_list)
            return;
        Forget(player);
        m_list->Subscribe(player, &SPlayer::OnEvent, player.connection);
        player.subscription = ++m_subscriptions;
        m_living.push_back(player.subscription);
    }

    void DestroyList()
    {
        m_list.reset();
        m_living.clear();
        for (auto& call : m_calls)
            call.clear();
    }

    void Call()
    {
        if (!m_list || m_calls.size() > 4)
            return;
        m_calls.push_back(m_living);
        try {
            m_list->Invoke();
            EXPECT_TRUE(m_calls.back().empty());
            m_calls.pop_back();
        } catch (const SThrown&) {
            m_calls.pop_back();
            if (m_random() % 2 == 0)
                throw;
        }
    }

    void Forget(const SPlayer& player)
    {
        std::erase(m_living, player.subscription);
        for (auto& call : m_calls)
            std::erase(call, player.subscription);
    }

    std::mt19937 m_random;
    std::unique_ptr<CMultiClosure0<void>> m_list;
    std::vector<std::unique_ptr<SPlayer>> m_players;
    int m_subscriptions = 0;
    int m_budget = 0;
    std::vector<int> m_living;
    std::vector<std::vector<int>> m_calls;
};

void SPlayer::OnEvent()
{
    // Nothing of this object is used once the game goes on.
    play.OnCalled(subscription);
}

} // namespace

TEST(MultiClosure, AgreesWithASimpleModelWhateverHappensInACall)
{
    for (unsigned int seed = 1; seed <= 500 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        CPlay(seed).Run();
    }
}
