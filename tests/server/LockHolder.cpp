// Another program that works with a database: takes its lock and keeps it until it is killed.
//
//     lock_holder SERVER.INI DATABASE SECONDS
//
// Writes "locked" when it has the lock. Ends with 3 when it does not get it.

#include "CMyDatabase.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

int main(int count, char** arguments)
{
    if (count != 4)
        return 2;
    CMyDatabase database(CMyServer(arguments[1]), arguments[2]);
    if (!database.LockDatabase(std::atoi(arguments[3])))
        return 3;
    std::puts("locked");
    std::fflush(stdout);
    std::this_thread::sleep_for(std::chrono::minutes(2));
    return 0;
}
