#pragma once

#include <initializer_list>
#include <map>
#include <string>

/// While it lives, a signal comes between the first of every two system calls of the same name that write and
/// lock files.
class CInterruptedCalls
{
public:
    CInterruptedCalls();
    ~CInterruptedCalls();
    CInterruptedCalls(const CInterruptedCalls&) = delete;
    CInterruptedCalls& operator=(const CInterruptedCalls&) = delete;

    /// How often which call was interrupted.
    std::map<std::string, int> GetCounts() const;
};

/// Makes the next calls that open files fail, each with the next of the errors.
void FailToOpen(std::initializer_list<int> errors);
