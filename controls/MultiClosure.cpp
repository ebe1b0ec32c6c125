#include "controls/MultiClosure.h"

namespace CommonUI
{

void CClosureConnection::Disconnect() noexcept
{
    if (m_list)
        m_list->Unsubscribe(*this);
}

CMultiClosureBase::~CMultiClosureBase()
{
    for (CCall* call = m_calls; call; call = call->m_outer) {
        call->m_list = nullptr;
        call->m_last = call->m_current;
    }
    for (SClosureEntry* entry = m_first; entry;) {
        SClosureEntry* const next = entry->next;
        entry->slot.Disconnect();
        if (!IsInCall(entry))
            delete entry;
        entry = next;
    }
}

void CMultiClosureBase::Append(std::unique_ptr<SClosureEntry> entry, CClosureConnection& connection) noexcept
{
    connection.Disconnect();
    connection.m_list = this;
    connection.m_entry = entry.get();
    entry->previous = m_last;
    (m_last ? m_last->next : m_first) = entry.get();
    m_last = entry.release();
    ++m_count;
}

void CMultiClosureBase::Unsubscribe(CClosureConnection& connection) noexcept
{
    if (connection.m_list != this)
        return;
    SClosureEntry* const entry = connection.m_entry;
    entry->slot.Disconnect();
    --m_count;
    if (IsInCall(entry))
        return;
    Unlink(entry);
    delete entry;
}

bool CMultiClosureBase::IsInCall(const SClosureEntry* entry) const noexcept
{
    return m_calls && m_calls->IsAt(entry);
}

void CMultiClosureBase::Unlink(SClosureEntry* entry) const noexcept
{
    // A call that has this entry still before it has not reached the one before it either, or is there.
    for (CCall* call = m_calls; call; call = call->m_outer) {
        if (call->m_last == entry)
            call->m_last = entry->previous;
    }
    (entry->previous ? entry->previous->next : m_first) = entry->next;
    (entry->next ? entry->next->previous : m_last) = entry->previous;
}

// Whether this call or one around it is at the entry.
bool CMultiClosureBase::CCall::IsAt(const SClosureEntry* entry) const noexcept
{
    return m_current == entry || (m_outer && m_outer->IsAt(entry));
}

// Frees an entry without subscriber that this call leaves, unless a call around it is still there.
void CMultiClosureBase::CCall::Release(SClosureEntry* entry) noexcept
{
    if (m_outer && m_outer->IsAt(entry))
        return;
    if (m_list)
        m_list->Unlink(entry);
    delete entry;
}

} // namespace CommonUI
