// The workbench in the hands of somebody without a plan. A run is repeated by its seed, and shortened from
// both sides:
//     COMMONUI_MONKEY_SEED=7 COMMONUI_MONKEY_FIRST=1200 COMMONUI_MONKEY_EVENTS=50 COMMONUI_MONKEY_TALK=1

#include "tests/workbench/Monkey.h"
#include "common/Language.h"
#include "gl/OpenGLWrapper.h"
#include "measurement/BackgroundWork.h"
#include "platform/memory/MemoryClipboard.h"
#include "tests/DiagnosticsCapture.h"
#include "tests/workbench/WorkbenchTesting.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>

#include <climits>
#include <cstdio>
#include <fstream>
#include <string_view>

namespace Workbench
{

using namespace CommonUI::Measurement;

namespace
{

int ReadNumber(const char* variable, int otherwise)
{
    bool isNumber = false;
    const int number = qEnvironmentVariableIntValue(variable, &isNumber);
    return isNumber ? number : otherwise;
}

QStringList& GetWarnings()
{
    static QStringList warnings;
    return warnings;
}

// What Qt says of its own doings, or of a display without a window manager.
constexpr const char* c_harmless[] = {
    "QXcbClipboard", // another program of the test's display asks too late
};

void KeepWarning(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", qPrintable(text));
    const auto isMeant = [&](const char* harmless) { return text.contains(QLatin1String(harmless)); };
    if (type != QtDebugMsg && type != QtInfoMsg && std::ranges::none_of(c_harmless, isMeant))
        GetWarnings() += text;
}

// In MB.
int ReadMemory()
{
    std::ifstream file("/proc/self/statm");
    long all = 0;
    long resident = 0;
    file >> all >> resident;
    return static_cast<int>(resident * 4 / 1024);
}

} // namespace

class Monkey : public CWorkbenchTest
{
protected:
    static constexpr int c_checkEvery = 40;
    static constexpr int c_mostMemory = 300; // MB beyond what the first half of the events has taken
    static constexpr int c_longest = 60'000; // ms that work may take

    Monkey()
        : m_before(qInstallMessageHandler(KeepWarning))
    {
        QGuiApplication::setQuitOnLastWindowClosed(false);
        std::filesystem::current_path(m_folder.GetPath()); // where dialogs of Qt would begin
    }
    ~Monkey() override
    {
        std::filesystem::current_path(m_currentBefore);
        QGuiApplication::setLayoutDirection(Qt::LeftToRight);
        UseLanguage("en");
        qInstallMessageHandler(m_before);
        QGuiApplication::setQuitOnLastWindowClosed(true);
    }

    void Play()
    {
        Schedule();
        m_loop.exec();
        End(false);
    }

private:
    // The next event, also from the loop of a dialog that this one opens.
    void Schedule()
    {
        if (!std::exchange(m_isScheduled, true))
            QTimer::singleShot(0, &m_loop, [this] {
                m_isScheduled = false;
                Step();
            });
    }
    void Step()
    {
        m_level = std::min(m_level, QThread::currentThread()->loopLevel());
        const bool isDue = m_event >= m_end || m_event % c_checkEvery == 0;
        if (HasFailure())
            return m_loop.quit();
        if (isDue && m_checked != m_event) {
            if (!IsAlone())
                Leave();
            else if (IsAtRest())
                Check();
            return Schedule();
        }
        if (m_event >= m_end)
            return m_loop.quit();
        if (m_mustRest && !IsAtRest())
            return Schedule();
        Act();
        Schedule();
    }
    bool IsAlone() const
    {
        return !QApplication::activePopupWidget() && !QApplication::activeModalWidget() &&
               QThread::currentThread()->loopLevel() == m_level;
    }
    // Everything can be left by Escape, a drag as well.
    void Leave()
    {
        Schedule();
        ASSERT_LT(++m_escapes, 1000) << Say("cannot be left");
        CChance chance(0, 0);
        if (QWidget* const root = CMonkeyHands::GetRoot(*m_window, chance))
            m_hands.Press(*root, Qt::Key_Escape);
    }
    bool IsAtRest()
    {
        bool isBusy = m_window->GetResults().IsBusy() || m_window->GetSeeTools().GetCurves().IsBusy();
        for (CSurfacePage* const page : m_window->findChildren<CSurfacePage*>())
            isBusy |= page->GetProcessing().IsBusy();
        if (!isBusy || !m_rest.isValid())
            m_rest.start();
        if (m_rest.elapsed() > c_longest)
            ADD_FAILURE() << Say("is never done");
        return !isBusy;
    }
    std::string Say(const char* what) const
    {
        const QWidget* const modal = QApplication::activeModalWidget();
        return std::string(what) + (modal ? std::string(": ") + modal->metaObject()->className() : "");
    }

    void Act()
    {
        CChance chance(m_seed, m_event++);
        m_answers.SetChance(chance);
        m_mustRest = chance.OneIn(2);
        if (m_talks)
            std::fprintf(stderr, "monkey: seed %u, event %d: ", m_seed, m_event - 1);
        QString what;
        if (!m_window->isVisible() || chance.OneIn(150)) {
            if (IsAlone())
                what = Restart(chance);
            else
                Leave();
        } else {
            Schedule();
            what = chance.OneIn(6) && IsAlone() ? Meddle(chance) : Touch(chance);
        }
        if (m_talks)
            std::fprintf(stderr, "%s\n", qPrintable(what));
    }
    QString Touch(CChance& chance)
    {
        QWidget* const root = CMonkeyHands::GetRoot(*m_window, chance);
        // They would print into a file, or delete and move files.
        if (root->inherits("QPrintDialog") || root->window()->inherits("QFileDialog")) {
            m_hands.Press(*root, Qt::Key_Escape);
            return QStringLiteral("no files");
        }
        const int kind = chance.Below(20);
        if (kind < 9)
            return m_hands.UseMouse(*root, chance);
        if (kind < 16)
            return m_hands.PressKeys(*root, *m_window, chance);
        if (kind < 18 || !IsAlone())
            return m_hands.TurnWheel(*root, chance);
        return m_hands.OpenMenu(*m_window, chance);
    }
    // What comes from elsewhere, or would take a hand long to do.
    QString Meddle(CChance& chance)
    {
        switch (chance.Below(9)) {
        case 0: {
            m_window->resize(200 + chance.Below(1600), 150 + chance.Below(1000));
            return QStringLiteral("resize");
        }
        case 1: {
            auto docks = m_window->findChildren<QDockWidget*>();
            QDockWidget& dock = *chance.Pick(docks);
            dock.setVisible(!chance.OneIn(4));
            dock.setFloating(chance.OneIn(3));
            return QStringLiteral("dock ") + dock.windowTitle();
        }
        case 2:
            m_files.Change(chance);
            return QStringLiteral("file changes");
        case 3:
            GetAnalysisPreferencesManager().SetDataParameterOn(static_cast<EAnalysis>(chance.Below(4)),
                                                               chance.Below(30), chance.OneIn(2));
            return QStringLiteral("parameter");
        case 4:
            GetPreferencesManager().GetData().Set3DPreviewTargetTime(chance.Below(100) / 1000.0);
            return QStringLiteral("target time");
        case 5:
            QGuiApplication::setLayoutDirection(chance.OneIn(2) ? Qt::RightToLeft : Qt::LeftToRight);
            return QStringLiteral("direction");
        case 6:
            return Drop(chance);
        case 7:
            return Undo(chance);
        default:
            return AddStep(chance);
        }
    }
    QString Drop(CChance& chance)
    {
        QMimeData data;
        QList<QUrl> urls;
        for (int count = 1 + chance.Below(3); count > 0; --count)
            urls += QUrl::fromLocalFile(QString::fromStdString(m_files.Choose(chance)));
        data.setUrls(urls);
        QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(m_window.get(), &drop);
        return QStringLiteral("drop ") + urls.back().fileName();
    }
    QString Undo(CChance& chance)
    {
        CProcessingPane& pane = m_window->GetProcessing();
        for (int times = chance.Below(8); times > 0; --times)
            (chance.OneIn(2) ? pane.GetUndo() : pane.GetRedo()).trigger();
        return QStringLiteral("undo and redo");
    }
    QString AddStep(CChance& chance)
    {
        constexpr EBuiltInSetting c_filters[] = {
            EBuiltInSetting::Filter_Smoothing_Mean_3x3, EBuiltInSetting::Filter_Smoothing_Mean_5x5,
            EBuiltInSetting::Filter_ISO_11562_lc_Filter_ISO_11562_lc_800_um};
        CProcessingPane& pane = m_window->GetProcessing();
        if (chance.OneIn(2))
            pane.GetCorrections().GetMenu().Choose(
                {EBuiltInSetting::PlaneCorrQuickLaunchImageLeveling, ESettingType::PlaneCorr});
        else
            pane.GetFilters().GetMenu().Choose({chance.Pick(c_filters), ESettingType::Filter});
        return QStringLiteral("step");
    }
    // The workbench ends well, or crashes; the next one may speak another language.
    QString Restart(CChance& chance)
    {
        const bool isCrash = chance.OneIn(2);
        End(isCrash);
        UseLanguage(chance.OneIn(3) ? "de" : "en");
        Start();
        m_window->OfferSessions();
        return isCrash ? QStringLiteral("crash") : QStringLiteral("restart");
    }
    void End(bool isCrash)
    {
        if (!isCrash)
            m_window->close();
        m_window.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        CBackgroundWork::WaitForAll();
        for (const QWidget* const widget : QApplication::allWidgets())
            EXPECT_TRUE(IsQts(*widget)) << "stays: " << Describe(*widget);
    }
    static std::string Describe(const QWidget& widget)
    {
        QString text;
        QDebug(&text) << &widget << widget.geometry() << widget.parent() << widget.windowFlags()
                      << widget.isVisible() << widget.children();
        return text.toStdString();
    }
    static bool IsQts(const QWidget& widget)
    {
        const std::string_view name = widget.metaObject()->className();
        return name == "QTipLabel" || name == "QRubberBand" || widget.windowType() == Qt::Desktop ||
               (widget.parentWidget() && IsQts(*widget.parentWidget()));
    }

    void Check()
    {
        m_checked = m_event;
        m_escapes = 0;
        std::printf("monkey: seed %u, %d events, %d MB\n", m_seed, m_event, ReadMemory());
        std::fflush(stdout);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (m_window->isVisible()) {
            CheckDisplay();
            CheckSteps();
            CheckOpenGL();
            CheckMemory();
        }
        EXPECT_EQ(std::exchange(GetWarnings(), {}).join(u'\n').toStdString(), "");
        EXPECT_FALSE(HasFailure()) << "seed " << m_seed << ", up to event " << m_event - 1;
    }
    // Title, tabs, views and list say the same.
    void CheckDisplay()
    {
        CSurfacePage* const page = m_window->GetPage();
        EXPECT_EQ(m_window->findChildren<CSurfacePage*>().size(), m_window->GetTabs().GetTabs().size());
        EXPECT_EQ(page != nullptr, m_window->GetTabs().GetCurrent().has_value());
        EXPECT_EQ(FindAction(EText::CloseTab)->isEnabled(), page != nullptr);
        EXPECT_EQ(m_window->GetNotice().isVisibleTo(m_window.get()), page && page->IsFileChanged());
        EXPECT_LE(m_window->GetStore().files.GetAll().size(), 10u);
        if (!page)
            return;
        const CStr title = m_window->GetTabs().GetTabs()[*m_window->GetTabs().GetCurrent()].title;
        EXPECT_EQ(m_window->windowTitle(),
                  ToQString(title) + QStringLiteral(" – ") + QText(EText::ProgramName));
        EXPECT_EQ(page->GetMap().GetSurface().input, page->GetSurface().input);
        EXPECT_EQ(page->GetBlock() != nullptr, page->GetSurface().box.has_value())
            << qPrintable(page->GetBlockText());
        const QListWidget& list = m_window->GetProcessing().GetList();
        const CProcessSteps& steps = page->GetProcessing().GetSteps();
        ASSERT_EQ(list.count(), static_cast<int>(steps.size()));
        for (int row = 0; row < list.count(); ++row) {
            const SProcessStep& step = steps[static_cast<std::size_t>(row)];
            EXPECT_EQ(list.item(row)->checkState() == Qt::Checked, step.isOn);
            EXPECT_TRUE(list.item(row)->text().startsWith(ToQString(step.GetTitle())));
        }
    }
    // What is undone comes back, and is in the journal.
    void CheckSteps()
    {
        CSession session;
        for (const STab& tab : m_window->GetTabs().GetTabs())
            for (CSurfacePage* const page : m_window->findChildren<CSurfacePage*>())
                if (CStr::FromUtf8(page->GetSurface().path.string()) == tab.key)
                    session.push_back({tab.key, page->GetProcessing().GetSteps()});
        for (SSessionSurface& surface : session)
            for (SProcessStep& step : surface.steps)
                step.id = 0; // which a journal does not keep
        if (CSurfacePage* const page = m_window->GetPage()) {
            CSurfaceProcessing& processing = page->GetProcessing();
            const CProcessSteps before = processing.GetSteps();
            int undone = 0;
            for (; processing.GetHistory().GetUndo(); ++undone)
                processing.Undo();
            for (; undone > 0; --undone)
                processing.Redo();
            EXPECT_EQ(processing.GetSteps(), before);
        }
        const CTemporaryFolder copy; // whose journals nobody has
        for (const auto& entry : std::filesystem::directory_iterator(m_window->GetStore().GetFolder()))
            if (entry.path().extension() == ".journal")
                copy.Write(entry.path().filename(), ReadAll(entry.path()));
        bool isKept = session.empty();
        std::string kept;
        for (const CDeadJournal& journal : FindDeadJournals(copy.GetPath())) {
            EXPECT_EQ(journal.GetDamage().ToUtf8(), "");
            isKept |= journal.GetSession() == session;
            kept += Describe(journal.GetSession());
        }
        EXPECT_TRUE(isKept) << Describe(session) << "is not in" << kept;
    }
    static std::string Describe(const CSession& session)
    {
        std::string text;
        for (const SSessionSurface& surface : session) {
            text += "\n" + surface.path.ToUtf8() + ":\n";
            for (const SProcessStep& step : surface.steps)
                text += (step.isOn ? "on " : "off ") + step.Describe().ToUtf8() + "\n";
        }
        return text;
    }
    static std::string ReadAll(const std::filesystem::path& path)
    {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    // The state is that of the start, and nothing complains.
    void CheckOpenGL()
    {
        CSurfacePage* const page = m_window->GetPage();
        CBlockWidget* const block = page ? page->GetBlock() : nullptr;
        if (!block || !block->isValid())
            return;
        CDiagnosticsCapture lines;
        block->makeCurrent();
        COpenGLWrapper::DiagnoseOutputStacks();
        EXPECT_EQ(block->context()->functions()->glGetError(), static_cast<GLenum>(GL_NO_ERROR));
        block->doneCurrent();
        const std::vector<CStr> now = lines.Take();
        if (m_stacks.empty())
            m_stacks = now;
        EXPECT_EQ(now, m_stacks);
    }
    // Of what was there with the first windows, not much more.
    void CheckMemory()
    {
        const int memory = ReadMemory();
        if (m_event - m_first <= (m_end - m_first) / 2)
            m_memory = std::max(m_memory, memory);
        else
            EXPECT_LT(memory, m_memory + c_mostMemory);
    }

    const unsigned m_seed = static_cast<unsigned>(ReadNumber("COMMONUI_MONKEY_SEED", 1));
    const int m_first = ReadNumber("COMMONUI_MONKEY_FIRST", 0);
    const int m_end = m_first + ReadNumber("COMMONUI_MONKEY_EVENTS", 400);
    const bool m_talks = qEnvironmentVariableIsSet("COMMONUI_MONKEY_TALK");
    const std::filesystem::path m_currentBefore = std::filesystem::current_path();
    QtMessageHandler m_before;
    CMonkeyFiles m_files{m_folder.GetPath()};
    CMonkeyAnswers m_answers{m_files, m_folder.GetPath()};
    CMemoryClipboard m_clipboard;
    CServiceScope<CMessageBoxService> m_answersScope{m_answers};
    CServiceScope<CFileDialogService> m_chooserScope{m_answers};
    CServiceScope<CClipboard> m_clipboardScope{m_clipboard};
    CMonkeyHands m_hands;
    QEventLoop m_loop;
    QElapsedTimer m_rest;
    std::vector<CStr> m_stacks;
    int m_event = m_first;
    int m_checked = -1;
    int m_escapes = 0;
    int m_level = INT_MAX; // of the loop without dialogs
    int m_memory = 0;
    bool m_isScheduled = false;
    bool m_mustRest = false;
};

TEST_F(Monkey, FindsNothing)
{
    Play();
}

} // namespace Workbench
