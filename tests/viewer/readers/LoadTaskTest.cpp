#include "LoadTask.h"

#include <gtest/gtest.h>

#include <chrono>
#include <stdexcept>
#include <string>
#include <thread>

#include "viewer/ViewerData.h"

namespace {

using qel::test::TemporaryFile;
using qelview::LoadTask;
using qelview::Progress;
using qelview::Scene;
using qelview::Stopwatch;
using qelview::UpAxis;

/// A scene after some time, half done meanwhile.
Scene sceneAfter(int milliseconds, Progress& progress) {
    progress.report(0.5);
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    Scene scene;
    scene.title = "loaded";
    return scene;
}

TEST(LoadTask, ShowsItsProgressOnceItLasts) {
    testing::internal::CaptureStderr();
    LoadTask task([](Progress& progress, Stopwatch&) { return sceneAfter(700, progress); });
    EXPECT_EQ(waitWithText(task).title, "loaded");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "\rqelview: loading, 50 %\n");
}

TEST(LoadTask, IsSilentWhileItIsQuick) {
    testing::internal::CaptureStderr();
    LoadTask task([](Progress& progress, Stopwatch&) { return sceneAfter(0, progress); });
    EXPECT_EQ(waitWithText(task).title, "loaded");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(LoadTask, HandsOnWhatItsWorkThrows) {
    LoadTask task([](Progress&, Stopwatch&) -> Scene { throw std::runtime_error("no memory"); });
    EXPECT_THROW(static_cast<void>(waitWithText(task)), std::runtime_error);
    EXPECT_TRUE(task.isDone());
}

TEST(LoadTask, MeasuresItsParts) {
    const TemporaryFile file("one.xyz", "1 2 3\n");
    LoadTask task({file.path().string()}, UpAxis::Z);
    EXPECT_EQ(waitWithText(task).cloudPointCount(), 1U);
    EXPECT_EQ(task.progressDone(), 1.0);
    std::string parts;
    for (const Stopwatch::Part& part : task.times().parts()) {
        parts += part.name + " ";
        EXPECT_GE(part.seconds, 0.0);
    }
    EXPECT_EQ(parts, "read normals middle parts ");
}

Scene loadFiles(const std::vector<std::string>& files, UpAxis up, std::vector<double>* reports = nullptr) {
    Progress progress;
    Stopwatch watch;
    Scene scene = qelview::loadScene(files, up, progress, watch);
    if (reports != nullptr) {
        reports->push_back(progress.done());
    }
    return scene;
}

TEST(LoadTaskScene, IsNamedAfterItsFiles) {
    const TemporaryFile one("one.xyz", "1 2 3\n");
    const TemporaryFile other("other.xyz", "3 2 1\n");
    EXPECT_EQ(loadFiles({one.path().string()}, UpAxis::Z).title, "qelview-test-one.xyz");
    EXPECT_EQ(loadFiles({one.path().string(), other.path().string()}, UpAxis::Z).title,
              "qelview-test-one.xyz and 1 more");
    EXPECT_EQ(loadFiles({one.path().string(), other.path().string(), one.path().string()}, UpAxis::Z).title,
              "qelview-test-one.xyz and 2 more");
}

TEST(LoadTaskScene, HasAllFilesAroundItsMiddle) {
    const TemporaryFile one("one.xyz", "10 20 30\n");
    const TemporaryFile other("other.xyz", "14 20 50\n");
    std::vector<double> reports;
    const Scene scene = loadFiles({one.path().string(), other.path().string()}, UpAxis::Z, &reports);
    EXPECT_EQ(qel::dist(scene.origin, {12, 20, 40}), 0.0);
    ASSERT_EQ(scene.clouds.size(), 2U);
    EXPECT_EQ(qel::dist(scene.clouds[0].positions.at(0), {-2, 0, -10}), 0.0);
    EXPECT_EQ(qel::dist(scene.clouds[1].positions.at(0), {2, 0, 10}), 0.0);
    EXPECT_EQ(reports.at(0), 1.0);
}

TEST(LoadTaskScene, HasTheUpAxisOfTheCaller) {
    const TemporaryFile file("one.xyz", "1 2 3\n");
    EXPECT_EQ(loadFiles({file.path().string()}, UpAxis::Y).up, UpAxis::Y);
    EXPECT_EQ(loadFiles({file.path().string()}, UpAxis::Z).up, UpAxis::Z);
    EXPECT_TRUE(loadFiles({}, UpAxis::Z).isEmpty());
}

TEST(LoadTaskWarnings, AreOneLineEach) {
    Scene scene;
    scene.warnings = {"a.ply: odd", "b.ply: strange"};
    testing::internal::CaptureStderr();
    qelview::printWarnings(scene);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "qelview: warning: a.ply: odd\nqelview: warning: b.ply: strange\n");
}

}  // namespace
