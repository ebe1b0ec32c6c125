#pragma once

#include "../export/Export.h"

/// @file
/// Every thread can have a queue of its own for messages, which are mere numbers. The thread looks into it
/// when it likes and never waits for it. Any thread may call the functions below; a thread's queue goes with
/// the thread, with the messages that it has not taken.

namespace CommonUI
{

/// The number by which others post to the calling thread: its queue is made with the first call. Never 0, and
/// no number is given twice.
COMMONUI_API unsigned long GetThreadIdentifier();

/// @return false if no thread with a queue has the identifier, or no more
COMMONUI_API bool PostToThread(unsigned long thread, unsigned int message);

/// Looks for a message in the queue of the calling thread and takes the first one of that number out.
/// @return whether there was one
COMMONUI_API bool TakeThreadMessage(unsigned int message);

} // namespace CommonUI
