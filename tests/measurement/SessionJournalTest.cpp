#include "measurement/process/SessionJournal.h"
#include "tests/FullDisk.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

#if !defined(_WIN32)
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>
#endif

using namespace CommonUI;
using namespace CommonUI::Measurement;

namespace
{

CSession MakeSession(int rows)
{
    const SFilterSettings mean{.kind = EFilterKind::Mean, .rows = rows, .columns = 3};
    const SPlaneCorrectionSettings bow{.order = 2};
    SProcessStep edited{.name = u"Filter / Mean 3x3", .work = mean, .isOn = false, .isEdited = true};
    edited.source = {.type = ESettingType::Filter, .settings = u"FILE:/gone/by\nnow \u00E4.flt"};
    SProcessStep level{.name = u"Bow", .work = bow};
    level.source = {.type = ESettingType::PlaneCorr, .settings = u"FILE:/sets/bow.pln"};
    SProcessStep voids{.name = u"Voids", .work = SInterpolation()};
    voids.source.operation = EBatchOperation::InterpolateVoids;
    return {{.path = u"/data/one \u00B5m.sdf", .steps = {edited, level, voids}}, {.path = u"/data/two.x3p"}};
}

class SessionJournal : public testing::Test
{
protected:
    const std::filesystem::path& GetFolder() const { return m_temporary.GetPath(); }
    std::size_t CountDead() const { return FindDeadJournals(GetFolder()).size(); }

    CTemporaryFolder m_temporary;
    CStr m_reason;
};

} // namespace

TEST_F(SessionJournal, ThatOfTheDeadIsOfferedAndThatOfTheLivingIsNot)
{
    EXPECT_EQ(FindDeadJournals(GetFolder() / "none").size(), 0u);
    auto first = std::make_unique<CSessionJournal>(GetFolder());
    auto second = std::make_unique<CSessionJournal>(GetFolder());
    EXPECT_NE(first->GetPath(), second->GetPath());
    EXPECT_TRUE(first->Write(MakeSession(5), m_reason));
    EXPECT_TRUE(second->Write(MakeSession(7), m_reason));
    EXPECT_EQ(CountDead(), 0u);
    first.reset();
    {
        auto dead = FindDeadJournals(GetFolder());
        ASSERT_EQ(dead.size(), 1u);
        EXPECT_EQ(dead[0].GetSession(), MakeSession(5));
        EXPECT_EQ(CountDead(), 0u); // while somebody is asked about it
        // Nor does a new one take its file.
        EXPECT_TRUE(CSessionJournal(GetFolder()).Write(MakeSession(9), m_reason));
        dead[0].Keep({MakeSession(5)[1]});
    }
    std::vector<CDeadJournal> dead = FindDeadJournals(GetFolder());
    ASSERT_EQ(dead.size(), 2u); // and that of the new one
    EXPECT_EQ(dead[0].GetSession(), (CSession{MakeSession(5)[1]}));
    EXPECT_EQ(dead[1].GetSession(), MakeSession(9));
    for (CDeadJournal& journal : dead)
        journal.Remove();
    dead.clear();
    second->Close();
    second.reset();
    EXPECT_TRUE(std::filesystem::is_empty(GetFolder()));
}

#if !defined(_WIN32) // where no process is made by a copy
TEST_F(SessionJournal, WhatWasWrittenOutlivesAKill)
{
    int pipe[2];
    ASSERT_EQ(::pipe(pipe), 0);
    const pid_t child = fork();
    ASSERT_NE(child, -1);
    if (child == 0) {
        CSessionJournal journal(GetFolder());
        for (int rows = 1;; rows = rows % 253 + 2) {
            CStr reason;
            const bool isDone = journal.Write(MakeSession(rows), reason);
            if (!isDone || ::write(pipe[1], &rows, sizeof rows) != sizeof rows)
                _exit(1);
        }
    }
    int rows = 0;
    for (int i = 0; i < 20; ++i)
        ASSERT_EQ(::read(pipe[0], &rows, sizeof rows), static_cast<ssize_t>(sizeof rows));
    EXPECT_EQ(CountDead(), 0u); // it lives
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    ::close(pipe[1]);
    int last = rows;
    while (::read(pipe[0], &rows, sizeof rows) == static_cast<ssize_t>(sizeof rows))
        last = rows;
    ::close(pipe[0]);
    const auto dead = FindDeadJournals(GetFolder());
    ASSERT_EQ(dead.size(), 1u);
    // The one it has told of, or the next, which it had no time to.
    EXPECT_TRUE(dead[0].GetSession() == MakeSession(last) ||
                dead[0].GetSession() == MakeSession(last % 253 + 2))
        << dead[0].GetDamage().ToUtf8();
}
#endif

#if !defined(_WIN32) // which has no limit for the size of files
TEST_F(SessionJournal, ADamagedOneIsSaidAndKeptAside)
{
    std::string whole;
    {
        CSessionJournal journal(GetFolder());
        EXPECT_TRUE(journal.Write(MakeSession(5), m_reason));
        whole = m_temporary.Read("session-1.journal");
        const CFullDisk disk(10);
        EXPECT_FALSE(journal.Write(MakeSession(7), m_reason));
        EXPECT_FALSE(m_reason.IsEmpty());
    }
    EXPECT_EQ(m_temporary.Read("session-1.journal"), whole);
    const auto without = [&](const std::string& part, const std::string& instead) {
        std::string text = whole;
        EXPECT_NE(text.find(part), std::string::npos) << part;
        return text.replace(text.find(part), part.size(), instead);
    };
    const std::pair<std::string, const char*> rows[] = {
        {"", "how many"},
        {std::string(500, '\0'), "how many"},
        {whole.substr(0, whole.size() / 2), "not whole"},
        {without("Version=1", "Version=2"), "newer"},
        {without("Surfaces=2", "Surfaces=3"), "surface 3"},
        {without("Surfaces=2", "Surfaces=2000000000"), "how many"},
        {without("Step2_Kind=0", "Step2_Kind=7"), "surface 1"},
        {without("Step2_Kind=0", "Step2_Kind=1"), "surface 1"},
        {without("Steps=3", "Steps=2"), "surface 1"},
    };
    for (const auto& [text, said] : rows) {
        m_temporary.Write("session-1.journal", text);
        const auto dead = FindDeadJournals(GetFolder());
        ASSERT_EQ(dead.size(), 1u);
        const std::string damage = dead[0].GetDamage().ToUtf8();
        EXPECT_NE(damage.find(said), std::string::npos) << damage;
        const std::size_t name = damage.find("kept as \"") + 9;
        ASSERT_GT(damage.size(), name) << damage;
        EXPECT_EQ(m_temporary.Read(damage.substr(name, damage.rfind('"') - name)), text);
        EXPECT_EQ(damage.find('\n'), std::string::npos);
    }
    EXPECT_EQ(CountDead(), 0u);
}
#endif

TEST_F(SessionJournal, OneThatCannotBeReadKeepsItsContent)
{
    constexpr std::uintmax_t c_tooLarge = (std::uintmax_t{64} << 20) + 1;
    m_temporary.Write("session-1.journal", "[Journal]\n");
    std::filesystem::resize_file(GetFolder() / "session-1.journal", c_tooLarge);
    m_temporary.Write("session-1.journal.damaged", ""); // of an earlier day
    {
        const auto dead = FindDeadJournals(GetFolder());
        ASSERT_EQ(dead.size(), 1u);
        const std::string damage = dead[0].GetDamage().ToUtf8();
        EXPECT_TRUE(damage.ends_with("; it is kept as \"session-1.journal.damaged-2\".")) << damage;
    }
    EXPECT_EQ(std::filesystem::file_size(GetFolder() / "session-1.journal.damaged-2"), c_tooLarge);
    EXPECT_EQ(CountDead(), 0u);
}

TEST_F(SessionJournal, HasAnyNumberOfSteps)
{
    for (const std::size_t count : {256u, 257u, 600u}) {
        CSession session = MakeSession(5);
        const SProcessStep last = session[0].steps[0];
        session[0].steps.resize(count - 1, session[0].steps[1]);
        session[0].steps.push_back(last);
        {
            CSessionJournal journal(GetFolder());
            EXPECT_TRUE(journal.Write(session, m_reason));
        }
        auto dead = FindDeadJournals(GetFolder());
        ASSERT_EQ(dead.size(), 1u);
        EXPECT_EQ(dead[0].GetDamage(), CStr());
        EXPECT_TRUE(dead[0].GetSession() == session) << count;
        dead[0].Remove();
    }
}
