#pragma once

// For a test program of its own: replaces operator new of the whole program, and so for the XML
// library as well.

/// Number of blocks that operator new has allocated and nobody has freed, on all threads.
long num_blocks();

/// While it lives, allocations of this thread fail after as many as given: the next one, or all
/// from there on. No allocation fails if the number is below 0.
class Starvation {
public:
    Starvation(long allocations, bool from_there_on);
    ~Starvation();
    Starvation(const Starvation&) = delete;
    Starvation& operator=(const Starvation&) = delete;
};
