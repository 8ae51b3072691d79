#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "ProbeScenes.h"

int main(int count, char** arguments) {
    constexpr int kUnknownScene = 99;
    const struct {
        const char* name;
        int (*play)();
    } scenes[] = {
        {"load-and-unload", &loadAndUnload},
        {"load-without-path", &loadWithoutPath},
        {"load-without-thread", &loadWithoutThread},
        {"load-without-hold", &loadWithoutHold},
        {"watch-thread", &loadAndWatchThread},
        {"end-with-displays", &endWithDisplays},
        {"end-while-threads-ask", &endWhileThreadsAsk},
    };
    for (const auto& scene : scenes) {
        if (count == 2 && std::strcmp(arguments[1], scene.name) == 0) {
            return scene.play();
        }
    }
    if (count == 4 && std::strcmp(arguments[1], "reload") == 0) {
        const std::wstring library(arguments[2], arguments[2] + std::strlen(arguments[2]));
        return reload(library.c_str(), std::atoi(arguments[3]));
    }
    if (count == 6 && std::strcmp(arguments[1], "load-storm") == 0) {
        return loadStorm(std::atoi(arguments[2]), std::atoi(arguments[3]),
                         static_cast<unsigned>(std::strtoul(arguments[4], nullptr, 10)),
                         std::atoi(arguments[5]));
    }
    if (count == 3 && std::strcmp(arguments[1], "end") == 0) {
        return endTheProcess(arguments[2]);
    }
    std::fprintf(stderr, "no such scene\n");
    return kUnknownScene;
}
