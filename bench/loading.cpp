#include <QtWidgets/QApplication>

#include <chrono>
#include <cstdio>
#include <dlfcn.h>

// Loads the library that it is given, beside libraries that the host has loaded already, and prints the
// microseconds.
int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const auto start = std::chrono::steady_clock::now();
    const bool loaded = argc == 2 && dlopen(argv[1], RTLD_NOW);
    const std::chrono::duration<double, std::micro> spent = std::chrono::steady_clock::now() - start;
    if (!loaded) {
        std::fprintf(stderr, "%s\n", argc == 2 ? dlerror() : "usage: talvix-bench-loading LIBRARY");
        return 1;
    }
    std::printf("%.0f\n", spent.count());
    return 0;
}
