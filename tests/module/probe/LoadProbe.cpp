#include <cstdio>
#include <cstring>

#include "ProbeScenes.h"

int main(int count, char** arguments) {
    constexpr int kUnknownScene = 99;
    const struct {
        const char* name;
        int (*play)();
    } scenes[] = {
        {"load-and-unload", &loadAndUnload},
        {"reload", &reload},
        {"load-without-path", &loadWithoutPath},
        {"load-without-thread", &loadWithoutThread},
        {"watch-thread", &loadAndWatchThread},
        {"end-with-displays", &endWithDisplays},
        {"end-while-threads-ask", &endWhileThreadsAsk},
    };
    for (const auto& scene : scenes) {
        if (count == 2 && std::strcmp(arguments[1], scene.name) == 0) {
            return scene.play();
        }
    }
    std::fprintf(stderr, "no such scene\n");
    return kUnknownScene;
}
