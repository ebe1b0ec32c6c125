#include "controls/MultiClosure.h"

#include <benchmark/benchmark.h>
#include <boost/signals2/dummy_mutex.hpp>
#include <boost/signals2/signal_type.hpp>
#include <sigc++/sigc++.h>

#include <deque>
#include <memory>
#include <vector>

using namespace CommonUI;

namespace
{

// A subscriber, to be called directly through its virtual function or through a signal.
class CListener
{
public:
    virtual ~CListener() = default;
    virtual void OnVirtual() = 0;
    void OnEvent() { ++m_count; }

protected:
    std::size_t m_count = 0;
};

// There are two kinds, or the compiler would see that only one function can be meant and make no virtual
// call.
class CUpListener : public CListener
{
public:
    void OnVirtual() override { ++m_count; }
};

class CDownListener : public CListener
{
public:
    void OnVirtual() override { --m_count; }
};

// What a program would write if nobody ever unsubscribed: a list of the listeners.
class CBareListeners
{
public:
    void Connect(CListener& listener) { m_listeners.push_back(&listener); }
    void Emit() const
    {
        for (CListener* listener : m_listeners)
            listener->OnVirtual();
    }

private:
    std::vector<CListener*> m_listeners;
};

// The same with closures, which do not ask the listener's class for a common base.
class CBareClosures
{
public:
    void Connect(CListener& listener) { m_closures.push_back(MakeClosure(listener, &CListener::OnEvent)); }
    void Emit() const
    {
        for (const auto& closure : m_closures)
            closure->Invoke();
    }

private:
    std::vector<std::shared_ptr<CClosureBase0<void>>> m_closures;
};

class COurs
{
public:
    using CConnection = CClosureConnection;

    void Connect(CListener& listener) { Connect(listener, m_connections.emplace_back()); }
    void Connect(CListener& listener, CConnection& connection)
    {
        m_list.Subscribe(listener, &CListener::OnEvent, connection);
    }
    void Emit() const { m_list.Invoke(); }

private:
    CMultiClosure0<void> m_list;
    std::deque<CConnection> m_connections;
};

class CSigc
{
public:
    struct CConnection : sigc::connection {
        void Disconnect() { disconnect(); }
    };

    void Connect(CListener& listener) { m_signal.connect(sigc::mem_fun(listener, &CListener::OnEvent)); }
    void Connect(CListener& listener, CConnection& connection)
    {
        static_cast<sigc::connection&>(connection) =
            m_signal.connect(sigc::mem_fun(listener, &CListener::OnEvent));
    }
    void Emit() const { m_signal.emit(); }

private:
    sigc::signal<void()> m_signal;
};

// @tparam TMutex signals2::mutex as by default, or dummy_mutex for use on one thread
template<class TMutex>
class CBoost
{
public:
    struct CConnection : boost::signals2::connection {
        void Disconnect() { disconnect(); }
    };

    void Connect(CListener& listener)
    {
        m_signal.connect([&listener] { listener.OnEvent(); });
    }
    void Connect(CListener& listener, CConnection& connection)
    {
        static_cast<boost::signals2::connection&>(connection) =
            m_signal.connect([&listener] { listener.OnEvent(); });
    }
    void Emit() { m_signal(); }

private:
    typename boost::signals2::signal_type<void(), boost::signals2::keywords::mutex_type<TMutex>>::type
        m_signal;
};

template<class TSignal>
void Call(benchmark::State& state)
{
    std::vector<std::unique_ptr<CListener>> listeners;
    TSignal signal;
    for (auto i = state.range(0); i > 0; --i)
        signal.Connect(*listeners.emplace_back(std::make_unique<CUpListener>()));
    // So that no call is resolved at compile time.
    benchmark::DoNotOptimize(&signal);
    for (auto _ : state) {
        signal.Emit();
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// One subscriber comes to a list with others, and the oldest of a ring of 16 goes.
template<class TSignal>
void SubscribeAndUnsubscribe(benchmark::State& state)
{
    CDownListener listener;
    TSignal signal;
    for (auto i = state.range(0); i > 0; --i)
        signal.Connect(listener);
    typename TSignal::CConnection connections[16];
    std::size_t at = 0;
    for (auto _ : state) {
        connections[at].Disconnect();
        signal.Connect(listener, connections[at]);
        at = (at + 1) % std::size(connections);
    }
    for (auto& connection : connections)
        connection.Disconnect();
}

using CBoostLocking = CBoost<boost::signals2::mutex>;
using CBoostOneThread = CBoost<boost::signals2::dummy_mutex>;

void Sizes(benchmark::internal::Benchmark* bench)
{
    bench->Arg(1)->Arg(64)->Arg(10000);
}

BENCHMARK(Call<CBareListeners>)->Apply(Sizes);
BENCHMARK(Call<CBareClosures>)->Apply(Sizes);
BENCHMARK(Call<COurs>)->Apply(Sizes);
BENCHMARK(Call<CSigc>)->Apply(Sizes);
BENCHMARK(Call<CBoostOneThread>)->Apply(Sizes);
BENCHMARK(Call<CBoostLocking>)->Apply(Sizes);
BENCHMARK(SubscribeAndUnsubscribe<COurs>)->Apply(Sizes);
BENCHMARK(SubscribeAndUnsubscribe<CSigc>)->Apply(Sizes);
BENCHMARK(SubscribeAndUnsubscribe<CBoostOneThread>)->Apply(Sizes);
BENCHMARK(SubscribeAndUnsubscribe<CBoostLocking>)->Apply(Sizes);

} // namespace
