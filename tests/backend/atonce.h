// Runs actions at the same time.
#pragma once

#include <functional>
#include <thread>
#include <vector>

inline void together(const std::vector<std::function<void()>> &actions)
{
    std::vector<std::thread> threads;
    for (const std::function<void()> &action : actions)
        threads.emplace_back(action);
    for (std::thread &thread : threads)
        thread.join();
}
