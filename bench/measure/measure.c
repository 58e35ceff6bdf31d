/* nas2zdt-measure: runs a command and tells what it took, as a line for a program:
 *
 *     nas2zdt-measure REPORT COMMAND [ARGUMENT]...
 *
 * writes "SECONDS USER SYSTEM KILOBYTES STATUS" to the file REPORT. A large program that starts a command passes its
 * own peak of memory on as the command's, and starts it slowly; this one is small on purpose. The command's output goes
 * to /dev/null. POSIX. */

#define _POSIX_C_SOURCE 200809L
#define _DEFAULT_SOURCE

#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

static double now(void) {
    struct timespec time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return (double)time.tv_sec + (double)time.tv_nsec * 1e-9;
}

static double seconds(struct timeval time) {
    return (double)time.tv_sec + (double)time.tv_usec * 1e-6;
}

int main(int count, char** arguments) {
    struct rusage usage;
    int status = 0;
    double begin;
    double end;
    pid_t child;
    FILE* report;
    if (count < 3) return 2;
    begin = now();
    child = fork();
    if (child == 0) {
        const int null = open("/dev/null", O_WRONLY);
        dup2(null, STDOUT_FILENO);
        execvp(arguments[2], arguments + 2);
        _exit(127);
    }
    if (child < 0 || wait4(child, &status, 0, &usage) < 0) {
        perror("nas2zdt-measure");
        return 1;
    }
    end = now();
    report = fopen(arguments[1], "w");
    if (!report) {
        perror(arguments[1]);
        return 1;
    }
    fprintf(report, "%.9f %.6f %.6f %ld %d\n", end - begin, seconds(usage.ru_utime), seconds(usage.ru_stime),
            usage.ru_maxrss, WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status));
    return fclose(report) == 0 ? 0 : 1;
}
