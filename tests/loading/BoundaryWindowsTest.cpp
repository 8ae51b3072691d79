#include <gtest/gtest.h>

#include <QString>

#include "LoadedModuleWindows.h"
#include "QelGl.h"

namespace qel::test {
namespace {

/// What is passed and returned by value, in every way that a compiler has for it.
class Boundary : public ::testing::Test {
  protected:
    LoadedModule loaded;
};

TEST_F(Boundary, PassesStructuresOfEverySize) {
    IQelSymbol& symbol = loaded.symbol();
    symbol.setAuxColor({10, 20, 30, 40});
    const QelColor4b four = symbol.getAuxColor();
    EXPECT_EQ(four.r + four.g * 256 + four.b * 65536, 10 + 20 * 256 + 30 * 65536);

    loaded.display().setBackColor({0.25F, 0.5F, 0.75F});
    const QelColor3f twelve = loaded.display().getBackColor();
    EXPECT_EQ(twelve.r, 0.25F);
    EXPECT_EQ(twelve.g, 0.5F);
    EXPECT_EQ(twelve.b, 0.75F);

    const auto flat = adopt(ofModule<decltype(newGDIScrDisplay)>("newGDIScrDisplay")());
    flat->attachWindow(loaded.windowNumber());
    flat->setPixelSize(100, 50);
    flat->setViewExtent(Enve2d(0.0, 0.0, 200.0, 100.0));
    const XPnt2d sixteen = flat->screenToWorld(50, 25);
    EXPECT_NEAR(sixteen.x, 100.0, 2.0);
    EXPECT_NEAR(sixteen.y, 50.0, 2.0);
    Enve2d rectangle = flat->getViewExtent();
    EXPECT_DOUBLE_EQ(rectangle.MidPoint().x, 100.0);

    loaded.camera().setCamera(XPnt3d(1.0, 2.0, 30.0), XPnt3d(1.0, 2.0, 3.0), XPnt3d(0.0, 1.0, 0.0));
    const XPnt3d eye = loaded.camera().getEye();
    EXPECT_EQ(eye.x, 1.0);
    EXPECT_EQ(eye.y, 2.0);
    EXPECT_EQ(eye.z, 30.0);
    EXPECT_TRUE(eye.isValid());
    loaded.camera().setExtent(Enve3d{-1.0, 1.0, -2.0, 2.0, -3.0, 3.0}, false);
    const Enve3d box = loaded.camera().getExtent();
    EXPECT_EQ(box.Width(), 2.0);
    EXPECT_EQ(box.HightY(), 4.0);
}

TEST_F(Boundary, PassesTextsBothWays) {
    for (const QString& name :
         {QString(), QString("plain"), QString::fromUtf8("\xC3\xA9\xE4\xB8\xAD\xF0\x9F\x98\x80"),
          QString(5000, 'x')}) {
        EXPECT_EQ(loaded.symbol().setName(name), 1);
        const QString back = loaded.symbol().getName();
        EXPECT_TRUE(back == name) << back.size();
    }
}

TEST_F(Boundary, ReturnsASmartPointerFromAPlainFunction) {
    const auto publicSymbol = ofModule<decltype(getPubSymbol)>("getPubSymbol");
    ASSERT_NE(publicSymbol, nullptr);
    const ref_ptr<IQelSymbol> one = publicSymbol();
    ASSERT_TRUE(one);
    const std::int32_t held = one->referenceCount();
    {
        const ref_ptr<IQelSymbol> other = publicSymbol();
        EXPECT_EQ(other.get(), one.get());
        EXPECT_EQ(one->referenceCount(), held + 1);
    }
    EXPECT_EQ(one->referenceCount(), held);
}

TEST_F(Boundary, PassesAnyNumberOfArgumentsOfAText) {
    const auto textOf = [&](const auto&... text) {
        return loaded.frameOf([&] {
            glColor3f(1.0F, 1.0F, 1.0F);
            glRasterPos2i(4, 40);
            loaded.display().printText(text...);
        });
    };
    const std::vector<unsigned char> pixels = textOf("ab-7 2.5 x");
    EXPECT_GT(inkOf(pixels), 20);
    EXPECT_EQ(textOf("%s%d %.1f %c", "ab", -7, 2.5, 'x'), pixels);
    EXPECT_NE(textOf("%s%d %.1f %c", "ab", -7, 3.5, 'x'), pixels);
}

#if defined(_MSC_VER)
// MinGW keeps the type information of an exported class in its DLL, for hosts that link the import library.
TEST_F(Boundary, FindsTheDynamicTypeOfTheModulesObjects) {
    QelReferenced* const object = &loaded.display();
    EXPECT_NE(dynamic_cast<IQelDisplay*>(object), nullptr);
    EXPECT_EQ(dynamic_cast<IQelSymbol*>(object), nullptr);
}
#endif

}  // namespace
}  // namespace qel::test
