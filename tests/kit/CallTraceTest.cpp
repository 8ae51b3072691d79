#include "CallTrace.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>

#include "GlSurface.h"
#include "QelGl.h"

namespace qel::test {
namespace {

TEST(CallTrace, RecordsCallsInOrderWithTheirArguments) {
    const GlSurface surface(16, 16);
    const CallTrace trace;
    glBegin(GL_LINES);
    glVertex3d(1, 2.5, 0);
    glColor3f(0.1F, 0.2F, 1.0F);
    glEnd();
    EXPECT_TRUE(callsMatch(trace.calls("gl"), {
                                                  call("glBegin", GL_LINES),
                                                  call("glVertex3d", 1, 2.5, 0),
                                                  call("glColor3f", 0.1F, 0.2F, 1),
                                                  call("glEnd"),
                                              }));
}

TEST(CallTrace, PassesEachCallOn) {
    const GlSurface surface(16, 16);
    const CallTrace trace;
    glLineWidth(3);
    glClearColor(1, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    GLfloat width = 0;
    glGetFloatv(GL_LINE_WIDTH, &width);
    EXPECT_EQ(width, 3);
    EXPECT_EQ(surface.pixel(3, 3), (Rgba{255, 0, 0, 255}));
    EXPECT_EQ(trace.count("glGetFloatv"), 1U);
}

TEST(CallTrace, ReadsWhatStandsBehindPointers) {
    const GlSurface surface(16, 16);
    const GLfloat colour[] = {0.2F, 0.25F, 0.5F, 1};
    const GLfloat shininess = 100;
    const GLfloat position[] = {0, 0, 1, 0};
    const GLint twoSide = 1;
    const GLdouble matrix[] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    const GLint viewport[] = {0, 0, 16, 16};
    GLdouble x = 0;
    GLdouble y = 0;
    GLdouble z = 0;
    GLint mode = 0;
    const CallTrace trace;
    glLightfv(GL_LIGHT1, GL_DIFFUSE, colour);
    glLightfv(GL_LIGHT1, GL_POSITION, position);
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, colour);
    glLightModeliv(GL_LIGHT_MODEL_TWO_SIDE, &twoSide);
    glMaterialfv(GL_FRONT, GL_SHININESS, &shininess);
    glColor4fv(colour);
    glCallLists(5, GL_UNSIGNED_BYTE, "Hello");
    glGetIntegerv(GL_MATRIX_MODE, &mode);
    gluProject(0, 0, 0, matrix, matrix, viewport, &x, &y, &z);
    const Verbatim unit = doubleValues({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
    EXPECT_TRUE(
        callsMatch(trace.glCalls(),
                   {
                       call("glLightfv", GL_LIGHT1, GL_DIFFUSE, values({0.2F, 0.25F, 0.5F, 1})),
                       call("glLightfv", GL_LIGHT1, GL_POSITION, aboutValues({0, 0, 1, 0}, 1e-6)),
                       call("glLightModelfv", GL_LIGHT_MODEL_AMBIENT, values({0.2F, 0.25F, 0.5F, 1})),
                       call("glLightModeliv", GL_LIGHT_MODEL_TWO_SIDE, values({1})),
                       call("glMaterialfv", GL_FRONT, GL_SHININESS, values({100})),
                       call("glColor4fv", values({0.2F, 0.25F, 0.5F, 1})),
                       call("glCallLists", 5, GL_UNSIGNED_BYTE, "Hello"),
                       call("glGetIntegerv", GL_MATRIX_MODE, out),
                       call("gluProject", 0, 0, 0, unit, unit, doubleValues({0, 0, 16, 16}), out, out, out),
                   }));
    EXPECT_EQ(x, 8);
}

TEST(CallTrace, RecordsNothingBeforeAndAfterItsLife) {
    const GlSurface surface(16, 16);
    glLineWidth(2);
    {
        const CallTrace trace;
        EXPECT_TRUE(callsMatch(trace.glCalls(), {}));
        glLineWidth(3);
    }
    glLineWidth(4);
    const CallTrace trace;
    EXPECT_TRUE(callsMatch(trace.glCalls(), {}));
}

TEST(CallTrace, ForgetsWhatItIsToldTo) {
    const GlSurface surface(16, 16);
    CallTrace trace;
    glLineWidth(3);
    trace.clear();
    glLineWidth(4);
    EXPECT_TRUE(callsMatch(trace.glCalls(), {call("glLineWidth", 4)}));
}

TEST(CallTrace, KeepsNotesInTheSequence) {
    const GlSurface surface(16, 16);
    CallTrace trace;
    glLineWidth(3);
    trace.note("point 0 asked");
    CallTrace::noteIfAlive("point 1 asked");
    glLineWidth(4);
    const Calls both = {call("glLineWidth", 3), "point 0 asked", "point 1 asked", call("glLineWidth", 4)};
    EXPECT_TRUE(callsMatch(trace.glCallsAndNotes(), both));
    EXPECT_TRUE(callsMatch(trace.calls("glLineWidth(3", "point"), {both[0], both[1], both[2]}));
    EXPECT_TRUE(callsMatch(trace.glCalls(), {both[0], both[3]}));
}

TEST(CallTrace, AnswersInTheFunctionsPlaceEveryTime) {
    const GlSurface surface(16, 16);
    CallTrace trace;
    trace.answer("glGetError", GL_OUT_OF_MEMORY);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_OUT_OF_MEMORY));
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_OUT_OF_MEMORY));
    trace.passOn();
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    EXPECT_EQ(trace.count("glGetError"), 3U);
}

TEST(CallTrace, AnswersOnlyTheCallThatWasNamed) {
    const GlSurface surface(16, 16);
    CallTrace trace;
    EXPECT_EQ(glIsEnabled(GL_DITHER), GL_TRUE);
    trace.answer("glIsEnabled", 0, 2);
    EXPECT_EQ(glIsEnabled(GL_DITHER), GL_TRUE);
    EXPECT_EQ(glIsEnabled(GL_DITHER), GL_FALSE);
    EXPECT_EQ(glIsEnabled(GL_DITHER), GL_TRUE);
}

TEST(CallTrace, DoesNotPassOnWhatItAnswers) {
    const GlSurface surface(16, 16);
    CallTrace trace;
    trace.answer("glLineWidth", 0, 1);
    glLineWidth(5);
    GLfloat width = 0;
    glGetFloatv(GL_LINE_WIDTH, &width);
    EXPECT_EQ(width, 1);
    EXPECT_TRUE(callsMatch(trace.callsOf("glLineWidth"), {call("glLineWidth", 5)}));
}

TEST(CallTrace, AnswersPointers) {
    CallTrace trace;
    trace.answerPointer("gluNewQuadric", nullptr);
    EXPECT_EQ(gluNewQuadric(), nullptr);
    trace.passOn();
    trace.answerPointer("gluNewQuadric", &trace);
    EXPECT_EQ(static_cast<void*>(gluNewQuadric()), static_cast<void*>(&trace));
}

TEST(CallTrace, SeesNothingWhilePaused) {
    const GlSurface surface(16, 16);
    CallTrace trace;
    trace.answer("glGetError", GL_OUT_OF_MEMORY);
    {
        const CallTrace::Pause unrecorded;
        EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    }
    surface.pixel(0, 0);
    EXPECT_TRUE(callsMatch(trace.glCalls(), {}));
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_OUT_OF_MEMORY));
}

TEST(CallTrace, ListensToItsOwnThreadOnly) {
    CallTrace trace;
    trace.answerPointer("gluNewQuadric", nullptr);
    bool answered = true;
    std::thread([&] {
        GLUquadric* const quadric = gluNewQuadric();
        answered = quadric == nullptr;
        gluDeleteQuadric(quadric);
    }).join();
    EXPECT_FALSE(answered);
    EXPECT_EQ(trace.count("gluNewQuadric"), 0U);
}

TEST(CallTrace, RefusesAFunctionThatItCannotTrace) {
    CallTrace trace;
    EXPECT_TRUE(CallTrace::knows("glBegin"));
    EXPECT_FALSE(CallTrace::knows("glBeginning"));
    EXPECT_THROW(trace.count("glBeginning"), std::invalid_argument);
    EXPECT_THROW(trace.answer("glBeginning", 0), std::invalid_argument);
    EXPECT_THROW(trace.answer("exit", 0), std::invalid_argument);
}

TEST(CallTrace, IsTheOnlyOneAlive) {
    const CallTrace trace;
    EXPECT_THROW(CallTrace(), std::logic_error);
    gluDeleteQuadric(gluNewQuadric());
    EXPECT_EQ(trace.count("gluNewQuadric"), 1U);
}

}  // namespace
}  // namespace qel::test
