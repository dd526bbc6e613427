// cost PROGRAM ARGUMENT...: runs a program, and reports on standard error, last: its wait status,
// its processor time in microseconds, and its peak memory in KiB. (A small program does this since
// the peak of a process begins with that of the one that has started it.)

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

int main(int, char** argv) {
    const pid_t pid = fork();
    if (pid == 0) {
        execv(argv[1], argv + 1);
        _exit(127);
    }
    int status = 0;
    rusage usage = {};
    if (wait4(pid, &status, 0, &usage) != pid) {
        return 1;
    }
    const long seconds = usage.ru_utime.tv_sec + usage.ru_stime.tv_sec;
    const long microseconds = usage.ru_utime.tv_usec + usage.ru_stime.tv_usec;
    std::fprintf(stderr, "%d %ld %ld\n", status, seconds * 1000000 + microseconds, usage.ru_maxrss);
}
