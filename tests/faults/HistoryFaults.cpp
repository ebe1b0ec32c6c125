// Long random histories of edits, the preferences' manager and others beside simple models. Callbacks destroy
// whom they are called by or others, throw, and change what they are told of.

#include "common/Diagnostics.h"
#include "controls/IntEdit.h"
#include "controls/MemoryEditView.h"
#include "controls/MultiClosure.h"
#include "model/AnalysisPreferencesManager.h"
#include "platform/memory/MemoryMessageBoxService.h"
#include "platform/MessageBoxService.h"
#include "tests/faults/Faults.h"
#include "tests/faults/Histories.h"

#include <algorithm>
#include <array>
#include <limits>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

using namespace CommonUI;
using Faults::Expect;

namespace
{

struct SThrown {
};

long s_steps = 0;

// An edit, and what it has to hold.
class CEditGame
{
public:
    explicit CEditGame(unsigned seed)
        : m_random(seed)
    {
    }

    void Play(int steps)
    {
        for (int i = 0; i < steps; ++i, ++s_steps) {
            if (!m_edit)
                Begin();
            m_trouble = static_cast<ETrouble>(m_random() % 12);
            try {
                Act();
            } catch (const SThrown&) {
                Expect(m_trouble == ETrouble::Throw, "an edit throws what nobody has thrown");
            }
            if (m_edit)
                Check();
        }
    }

private:
    enum class ETrouble { Throw, Destroy, SetAgain, None };

    void Begin()
    {
        m_view = std::make_unique<CMemoryEditView>();
        m_edit = std::make_unique<CIntEdit>();
        m_edit->SetView(m_view.get());
        m_view->SetFocus(true);
        m_edit->SetValidator(*this, &CEditGame::OnValidate);
        m_edit->SetChangeNotification(*this, &CEditGame::OnChange);
        m_value = 0;
        m_minimum = std::numeric_limits<int>::min();
        m_maximum = std::numeric_limits<int>::max();
    }
    int Number() { return static_cast<int>(m_random() % 2001) - 1000; }
    int Clamp(int value) const
    {
        return std::clamp(value, std::min(m_minimum, m_maximum), std::max(m_minimum, m_maximum));
    }
    void Act()
    {
        const auto action = m_random() % 8;
        if (action == 0) {
            m_edit.reset();
        } else if (action == 1) {
            m_minimum = Number();
            m_maximum = Number();
            m_wanted = Clamp(m_value);
            m_mayTell = m_mustTell = m_wanted != m_value;
            m_edit->SetRange(m_minimum, m_maximum, 0.1);
            Told();
        } else if (action < 5) {
            m_wanted = Clamp(Number());
            m_mayTell = m_mustTell = true;
            m_edit->SetValue(m_wanted);
            Told();
        } else {
            Type(Number());
        }
    }
    // The validator takes no multiple of 3.
    void Type(int number)
    {
        m_wanted = Clamp(number);
        m_mayTell = m_mustTell = m_wanted != m_value && m_wanted % 3 != 0;
        m_view->SelectAll();
        m_view->Press(EKey::Delete);
        m_view->Type(CStr::Format(u"%d", number));
        m_edit->Validate();
        Told();
    }
    void Told() const { Expect(!m_mustTell, "a change of an edit is not told of"); }
    void Check() const
    {
        Expect(m_edit->GetValue() == m_value, "an edit holds " + std::to_string(m_edit->GetValue()) +
                                                  " instead of " + std::to_string(m_value));
        Expect(m_view->GetText() == CStr::Format(u"%d", m_value), "an edit shows what it does not hold");
    }
    bool OnValidate(int value) { return value % 3 != 0; }
    void OnChange(int value)
    {
        Expect(m_mayTell && value == m_wanted && m_edit->GetValue() == value,
               "an edit tells of another change");
        m_value = value;
        m_mustTell = false;
        switch (std::exchange(m_trouble, m_trouble == ETrouble::Throw ? m_trouble : ETrouble::None)) {
        case ETrouble::Throw:
            throw SThrown();
        case ETrouble::Destroy:
            m_edit.reset();
            break;
        case ETrouble::SetAgain:
            m_wanted = Clamp(Number());
            m_edit->SetValue(m_wanted);
            break;
        default:
            break;
        }
        m_mayTell = false;
    }

    std::mt19937 m_random;
    std::unique_ptr<CMemoryEditView> m_view;
    std::unique_ptr<CIntEdit> m_edit;
    int m_value = 0;
    int m_minimum = 0;
    int m_maximum = 0;
    int m_wanted = 0;
    bool m_mayTell = false;
    bool m_mustTell = false;
    ETrouble m_trouble = ETrouble::None;
};

class CManagerGame;

struct SListener {
    explicit SListener(CManagerGame& owner)
        : game(owner)
    {
    }
    void OnChange(const SPreferencesChange& change);

    CManagerGame& game;
    CClosureConnection connection{};
};

// The preferences' manager beside which of its parameters are on.
class CManagerGame
{
public:
    explicit CManagerGame(unsigned seed)
        : m_random(seed)
    {
        for (const EAnalysis analysis : c_analyses)
            for (const CParameter& parameter : m_manager.GetData(analysis).GetParameters())
                if (!parameter.IsTemplate()) // which is never on
                    m_on[{analysis, parameter.GetValue()}] = parameter.IsOn();
    }

    void Play(int steps)
    {
        for (int i = 0; i < steps; ++i, ++s_steps) {
            m_told = 0;
            m_isDisturbed = false;
            try {
                Act();
            } catch (const SThrown&) {
                Expect(m_isDisturbed, "the manager throws what nobody has thrown");
            }
            if (i % 64 == 0)
                CheckAll();
        }
        CheckAll();
    }
    void OnChange(const SPreferencesChange& change)
    {
        Expect(change == m_change, "listeners are told of another change");
        ++m_told;
        const auto action = m_random() % 24;
        m_isDisturbed |= action < 3;
        if (action == 0)
            throw SThrown();
        if (action == 1 && !m_listeners.empty())
            Remove(); // perhaps who is called
        if (action == 2)
            Add(); // who is not told of this change any more
    }

private:
    static constexpr std::array c_analyses{EAnalysis::Roughness, EAnalysis::Measure, EAnalysis::Tip};

    void Add()
    {
        if (m_listeners.size() >= 8)
            return;
        SListener& listener = *m_listeners.emplace_back(std::make_unique<SListener>(*this));
        m_manager.GetChangeList().Subscribe(listener, &SListener::OnChange, listener.connection);
    }
    void Remove()
    {
        std::swap(m_listeners[m_random() % m_listeners.size()], m_listeners.back());
        const auto last = std::move(m_listeners.back());
        m_listeners.pop_back();
    }
    void Act()
    {
        const auto action = m_random() % 16;
        if (action == 0)
            Add();
        else if (action == 1 && !m_listeners.empty())
            Remove();
        else if (action == 2)
            ReadBack();
        else
            Switch();
    }
    void Switch()
    {
        auto row = m_on.begin();
        std::advance(row, static_cast<long>(m_random() % m_on.size()));
        const auto [analysis, id] = row->first;
        const bool on = m_random() % 2 == 0;
        const bool changes = std::exchange(row->second, on) != on;
        const std::size_t listeners = m_listeners.size();
        m_change = {analysis, EPreferencesChange::Parameters};
        Expect(m_manager.SetDataParameterOn(analysis, id, on), "a parameter is not known any more");
        Expect(m_isDisturbed || m_told == (changes ? listeners : 0),
               std::to_string(m_told) + " of " + std::to_string(listeners) +
                   " listeners are told of parameter " + std::to_string(id));
    }
    // What was saved is what another manager loads.
    void ReadBack()
    {
        CInifile ini;
        ini.SelectSection(u"Analysis");
        Expect(m_manager.Save(ini), "preferences cannot be saved");
        CAnalysisPreferencesManager other;
        Expect(other.Load(ini), "preferences that were saved cannot be loaded");
        Check(other);
    }
    void Check(const CAnalysisPreferencesManager& manager) const
    {
        for (const EAnalysis analysis : c_analyses)
            for (const CParameter& parameter : manager.GetData(analysis).GetParameters())
                Expect((parameter.IsTemplate() ? false : m_on.at({analysis, parameter.GetValue()})) ==
                           parameter.IsOn(),
                       "parameter " + std::to_string(parameter.GetValue()) + " is not as it was set");
    }
    void CheckAll()
    {
        Expect(m_manager.GetChangeList().GetCount() == m_listeners.size(), "a list has lost who listens");
        Check(m_manager);
    }

    std::mt19937 m_random;
    CAnalysisPreferencesManager m_manager;
    std::map<std::pair<EAnalysis, int>, bool> m_on;
    std::vector<std::unique_ptr<SListener>> m_listeners;
    SPreferencesChange m_change{};
    std::size_t m_told = 0;
    bool m_isDisturbed = false;
};

void SListener::OnChange(const SPreferencesChange& change)
{
    // Nothing of this object is used once the game goes on.
    game.OnChange(change);
}

constexpr std::pair<void (*)(unsigned seed, int steps), int> c_games[] = {{Faults::PlayGrid, 20'000},
                                                                          {Faults::PlayClosures, 100'000},
                                                                          {Faults::PlayFactory, 1'000},
                                                                          {Faults::PlayDialogs, 2'000}};

} // namespace

int main(int argc, char** argv)
{
    const Faults::SOptions options = Faults::ParseOptions(argc, argv);
    const Faults::CTime time(options);
    GetDiagnostics().SetSink([](const SDiagnosticLine&) {});
    CMemoryMessageBoxService boxes;
    const CServiceScope<CMessageBoxService> scope(boxes);
    unsigned seed = options.seed;
    do {
        CEditGame(seed).Play(100'000);
        CManagerGame(seed).Play(20'000);
        for (const auto& [play, steps] : c_games) {
            play(seed, steps);
            s_steps += steps;
        }
        ++seed;
    } while (time.IsLeft());
    std::cout << "history_faults: seeds " << options.seed << " to " << seed - 1 << ", " << s_steps
              << " steps, " << time.GetSeconds() << " s" << std::endl;
    return 0;
}
