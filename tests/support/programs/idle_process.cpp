#include <chrono>
#include <thread>

/// Stands for a program that runs on under whatever name a copy of it is given.
int main()
{
    std::this_thread::sleep_for(std::chrono::hours(1));
}
