#include "Menu.h"
#include "OpenViewerWindows.h"
#include "QelGl.h"
#include "RecentStore.h"
#include "kit/Picture.h"
#include "viewer/ViewerData.h"

/// The menu of the viewer's window, through its window procedure.

namespace {

using qel::test::OpenViewer;
using qel::test::TemporaryFile;
using qelview::Command;
using qelview::KeyCommand;

using Names = std::vector<std::string>;

class ViewerMenu : public OpenViewer {
  protected:
    void choose(const KeyCommand& meaning) {
        send(WM_COMMAND, MAKEWPARAM(qelview::menuNumberOf(meaning), 0), 0);
        send(WM_PAINT, 0, 0);
    }
    HMENU bar() { return GetMenu(viewer->handle()); }
    std::string textOf(HMENU menu, unsigned place) {
        wchar_t text[512] = L"";
        GetMenuStringW(menu, place, text, 512, MF_BYPOSITION);
        return qelview::toUtf8(text);
    }
    bool isMarked(Command command) {
        send(WM_INITMENU, reinterpret_cast<WPARAM>(bar()), 0);
        return (GetMenuState(bar(), qelview::menuNumberOf({command}), MF_BYCOMMAND) & MF_CHECKED) != 0;
    }
    HMENU recentList() { return GetSubMenu(GetSubMenu(bar(), 0), 1); }
    Names recentTexts() {
        Names texts;
        for (int i = 0; i < GetMenuItemCount(recentList()); ++i) {
            texts.push_back(textOf(recentList(), static_cast<unsigned>(i)));
        }
        return texts;
    }
};

TEST_F(ViewerMenu, StandsAboveAViewOfTheWantedSize) {
    EXPECT_EQ(textOf(bar(), 0), "&File");
    EXPECT_EQ(textOf(bar(), 1), "&View");
    EXPECT_EQ(textOf(bar(), 2), "&Camera");
    EXPECT_EQ(textOf(bar(), 3), "&Tools");
    EXPECT_EQ(textOf(bar(), 4), "&Help");
    EXPECT_EQ(textOf(GetSubMenu(bar(), 0), 0), "&Open...\tCtrl+O");
    EXPECT_EQ(picture().width(), kWidth);
    EXPECT_EQ(picture().height(), kHeight);
    for (const char* const size : {"size 640 480", "size 200 100", "size 110 90"}) {
        play(size);
        const qelview::ClientSize client = qelview::clientSizeOf(viewer->handle());
        EXPECT_EQ("size " + std::to_string(client.width) + " " + std::to_string(client.height), size);
    }
}

/// Opens at once, and looks different from each side and in each colouring.
qelview::Scene slope() {
    qelview::TriangleMesh mesh;
    mesh.positions = {{-2, -1, 0}, {2, -1, 0}, {2, 1, 1}, {-2, 1, 1}};
    mesh.indices = {0, 1, 2, 0, 2, 3};
    mesh.color = {0.8F, 0.3F, 0.2F};
    qelview::PointCloud cloud;
    cloud.positions = {{-1, 0, 2}, {1, 0, 2}};
    qelview::Scene scene;
    scene.meshes.push_back(mesh);
    scene.clouds.push_back(cloud);
    return scene;
}

TEST_F(ViewerMenu, DoesWhatTheKeysDo) {
    open(slope());
    play("key 3\nwheel 2 90 80");
    std::unique_ptr<qelview::ViewerWindow> byMenu = std::move(viewer);
    open(slope());
    play("key 3\nwheel 2 90 80");
    for (const qelview::MenuColumn& column : qelview::menuColumns()) {
        for (const qelview::MenuLine& line : column.lines) {
            const Command command = line.meaning.command;
            // A capture has a new name each time; the dialog waits for a user.
            if (qelview::keyOf(line.key).key == 0 || command == Command::Capture ||
                command == Command::Open) {
                continue;
            }
            play("key " + std::string(line.key));
            const qel::test::Picture pictureByKey = picture();
            const std::string cameraByKey = cameraNow();
            const bool hasEndedByKey = viewer->hasEnded();
            std::swap(viewer, byMenu);
            choose(line.meaning);
            EXPECT_EQ(cameraNow(), cameraByKey) << line.text;
            EXPECT_EQ(qel::test::compare(picture(), pictureByKey).pixels, 0U) << line.text;
            EXPECT_EQ(viewer->hasEnded(), hasEndedByKey) << line.text;
            std::swap(viewer, byMenu);
        }
    }
}

TEST_F(ViewerMenu, MarksWhatIsSwitchedOn) {
    EXPECT_FALSE(isMarked(Command::SwitchProjection));
    EXPECT_FALSE(isMarked(Command::LongAxes));
    choose({Command::SwitchProjection});
    EXPECT_TRUE(isMarked(Command::SwitchProjection));
    EXPECT_FALSE(isMarked(Command::LongAxes));
    choose({Command::LongAxes});
    EXPECT_TRUE(isMarked(Command::LongAxes));
    choose({Command::SwitchProjection});
    EXPECT_FALSE(isMarked(Command::SwitchProjection));
}

TEST_F(ViewerMenu, QuitsWhateverIsUnderWay) {
    play("key H");
    choose({Command::Quit});
    EXPECT_TRUE(viewer->hasEnded());
}

TEST_F(ViewerMenu, LeavesADragAlone) {
    play("down left 100 100");
    const std::string before = cameraNow();
    choose({Command::StandardView, 1});
    EXPECT_EQ(cameraNow(), before);
    EXPECT_FALSE(viewer->hasEnded());
}

TEST_F(ViewerMenu, TellsVersionsAndTheRendererInItsAboutBox) {
    const std::string text = viewer->aboutText();
    EXPECT_NE(text.find("qelview 0.1.0"), std::string::npos) << text;
    EXPECT_NE(text.find(reinterpret_cast<const char*>(glGetString(GL_RENDERER))), std::string::npos) << text;
    EXPECT_NE(text.find(reinterpret_cast<const char*>(glGetString(GL_VERSION))), std::string::npos) << text;
    choose({Command::About});
    EXPECT_EQ(stage().annotations().notice, "qelview 0.1.0");
}

TEST_F(ViewerMenu, ListsTheFilesThatWereOpenedAndOpensThemAgain) {
    EXPECT_EQ(recentTexts(), Names{"None yet"});
    const TemporaryFile first("first & best.xyz", "0 0 0\n1 1 1\n");
    const TemporaryFile second("second.xyz", "0 0 0\n5 5 5\n");
    play("drop " + first.path().string() + "\ndrop " + second.path().string());
    const Names texts = recentTexts();
    ASSERT_EQ(texts.size(), 2U);
    EXPECT_EQ(texts[0], "&1 " + second.path().string());
    EXPECT_NE(texts[1].find("first && best.xyz"), std::string::npos);
    choose({Command::Recent, 1});
    EXPECT_EQ(viewer->recentFiles().names(), (Names{first.path().string(), second.path().string()}));
    EXPECT_EQ(stage().textOf({0, 0, 0}), "x 0.5000  y 0.5000  z 0.5000");
}

TEST_F(ViewerMenu, ForgetsARecentFileThatIsGone) {
    {
        const TemporaryFile passing("passing.xyz", "0 0 0\n1 1 1\n");
        play("drop " + passing.path().string());
    }
    choose({Command::Recent, 0});
    EXPECT_TRUE(viewer->hasFailedToOpen());
    EXPECT_EQ(recentTexts(), Names{"None yet"});
    // Places without a file do nothing.
    choose({Command::Recent, 5});
    EXPECT_EQ(recentTexts(), Names{"None yet"});
}

TEST_F(ViewerMenu, KeepsRecentFilesWhereItsSurroundingsSay) {
    qelview::Environment around = qelview::Environment::scripted();
    around.storeKey = L"Software\\QelDisplay64t\\qelview-recent";
    qelview::writeRecentFiles(around.storeKey, {"C:\\old.obj"});
    const auto kept = [&around] { return qelview::readRecentFiles(around.storeKey); };
    open(sampleScene(), around);
    EXPECT_EQ(recentTexts(), Names{"&1 C:\\old.obj"});
    const TemporaryFile file("kept.xyz", "0 0 0\n1 1 1\n");
    play("drop " + file.path().string());
    EXPECT_EQ(kept(), (Names{file.path().string(), "C:\\old.obj"}));
    // Which axis points up in it is kept too, and honoured when it is opened again.
    choose({Command::TurnUp});
    EXPECT_EQ(kept(), (Names{file.path().string() + "|y", "C:\\old.obj"}));
    play("drop " + file.path().string());
    EXPECT_EQ(stage().up(), qelview::UpAxis::Y);
    EXPECT_EQ(kept().front(), file.path().string() + "|y");
    viewer.reset();
    EXPECT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, around.storeKey), ERROR_SUCCESS);
}

TEST(ViewerMenuRecentStore, KeepsTheLookOfTheLastWindowInItsKey) {
    constexpr const wchar_t* kKey = L"Software\\QelDisplay64t\\qelview-look";
    RegDeleteKeyW(HKEY_CURRENT_USER, kKey);
    EXPECT_FALSE(qelview::readWindowLook(kKey).has_value());
    qelview::writeWindowLook(kKey, {1000, 700, true});
    const auto look = qelview::readWindowLook(kKey);
    ASSERT_TRUE(look.has_value());
    EXPECT_EQ(look->width, 1000);
    EXPECT_EQ(look->height, 700);
    EXPECT_TRUE(look->isOrthographic);
    // Nobody can use a window of this size.
    qelview::writeWindowLook(kKey, {3, -700, false});
    EXPECT_FALSE(qelview::readWindowLook(kKey).has_value());
    EXPECT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, kKey), ERROR_SUCCESS);
}

TEST(ViewerMenuRecentStore, KeepsNamesOfAnyLanguageInItsKey) {
    constexpr const wchar_t* kKey = L"Software\\QelDisplay64t\\qelview-test";
    RegDeleteKeyW(HKEY_CURRENT_USER, kKey);
    EXPECT_EQ(qelview::readRecentFiles(kKey), Names{});
    const Names names{"C:\\a b.obj", "D:\\\xC3\xA9t\xC3\xA9\\\xE5\xB1\xB1.ply"};
    qelview::writeRecentFiles(kKey, names);
    EXPECT_EQ(qelview::readRecentFiles(kKey), names);
    qelview::writeRecentFiles(kKey, {});
    EXPECT_EQ(qelview::readRecentFiles(kKey), Names{});
    EXPECT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, kKey), ERROR_SUCCESS);
}

}  // namespace
