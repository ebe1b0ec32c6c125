#pragma once

#include "platform/ThreadMessages.h"

#include <memory>

namespace CommonUI
{

class CThreadQueue;

/// A queue for a thread that is yet to start: messages can be posted to it at once.
std::shared_ptr<CThreadQueue> CreateThreadQueue();
unsigned long GetThreadIdentifier(const CThreadQueue& queue);
/// Makes a queue that of the calling thread, which has none yet.
void AdoptThreadQueue(std::shared_ptr<CThreadQueue> queue);

} // namespace CommonUI
