#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ravelin/platform/AfxMessageBox.h"

#include "support/RavelinTesting.h"

using namespace ravelin;
using namespace ravelin::testing_support;

namespace {

// Every test starts from the default handler and puts back whatever was installed before.
class AfxMessageBoxTest : public testing::Test {
private:
    ScopedMessageBoxHandler m_default{AfxMessageBoxHandler{}};
};

using AfxMessageBoxDefault = AfxMessageBoxTest;
using AfxMessageBoxHandlers = AfxMessageBoxTest;

}  // namespace

TEST_F(AfxMessageBoxDefault, WritesTheTextToStandardErrorAndAnswersOk) {
    testing::internal::CaptureStderr();
    const int answer = AfxMessageBox("The drawing could not be closed.", 0, 0);
    const std::string written = testing::internal::GetCapturedStderr();
    EXPECT_EQ(answer, IDOK);
    EXPECT_NE(written.find("The drawing could not be closed."), std::string::npos);
}

TEST_F(AfxMessageBoxDefault, PassesUtf8TextThrough) {
    testing::internal::CaptureStderr();
    AfxMessageBox("Nastal problém s normalizáciou");
    const std::string written = testing::internal::GetCapturedStderr();
    EXPECT_NE(written.find("Nastal problém s normalizáciou"), std::string::npos);
}

TEST_F(AfxMessageBoxHandlers, ReplacedHandlerReceivesTextTypeAndHelpId) {
    std::vector<MessageBoxCall> shown;
    AfxSetMessageBoxHandler(RecordingHandler(shown, 7));
    testing::internal::CaptureStderr();
    const int answer = AfxMessageBox("Save changes?", 3, 42);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(answer, 7);
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0].text, "Save changes?");
    EXPECT_EQ(shown[0].type, 3u);
    EXPECT_EQ(shown[0].helpId, 42u);
}

TEST_F(AfxMessageBoxHandlers, TypeAndHelpIdDefaultToZero) {
    std::vector<MessageBoxCall> shown;
    AfxSetMessageBoxHandler(RecordingHandler(shown, IDOK));
    AfxMessageBox("Done.");
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0].type, 0u);
    EXPECT_EQ(shown[0].helpId, 0u);
}

TEST_F(AfxMessageBoxHandlers, SettingReturnsThePreviousHandler) {
    std::vector<MessageBoxCall> first;
    std::vector<MessageBoxCall> second;
    AfxSetMessageBoxHandler(RecordingHandler(first, 1));
    AfxMessageBoxHandler previous = AfxSetMessageBoxHandler(RecordingHandler(second, 2));
    ASSERT_TRUE(previous);
    EXPECT_EQ(previous("to the first", 5, 6), 1);
    ASSERT_EQ(first.size(), 1u);
    EXPECT_EQ(first[0].text, "to the first");
    EXPECT_EQ(first[0].type, 5u);
    EXPECT_EQ(first[0].helpId, 6u);
    EXPECT_EQ(AfxMessageBox("to the second"), 2);
    EXPECT_EQ(second.size(), 1u);
    EXPECT_EQ(first.size(), 1u);
}

TEST_F(AfxMessageBoxHandlers, FirstReplacementReturnsTheDefault) {
    std::vector<MessageBoxCall> shown;
    AfxMessageBoxHandler previous = AfxSetMessageBoxHandler(RecordingHandler(shown, 9));
    ASSERT_TRUE(previous);
    testing::internal::CaptureStderr();
    const int answer = previous("from the default", 0, 0);
    const std::string written = testing::internal::GetCapturedStderr();
    EXPECT_EQ(answer, IDOK);
    EXPECT_NE(written.find("from the default"), std::string::npos);
    EXPECT_TRUE(shown.empty());
}

TEST_F(AfxMessageBoxHandlers, EmptyHandlerRestoresTheDefault) {
    std::vector<MessageBoxCall> shown;
    AfxSetMessageBoxHandler(RecordingHandler(shown, 9));
    AfxMessageBoxHandler replaced = AfxSetMessageBoxHandler({});
    ASSERT_TRUE(replaced);
    EXPECT_EQ(replaced("back", 0, 0), 9);
    EXPECT_EQ(shown.size(), 1u);

    testing::internal::CaptureStderr();
    const int answer = AfxMessageBox("default again");
    const std::string written = testing::internal::GetCapturedStderr();
    EXPECT_EQ(answer, IDOK);
    EXPECT_NE(written.find("default again"), std::string::npos);
    EXPECT_EQ(shown.size(), 1u);
}

TEST_F(AfxMessageBoxHandlers, EachCallReachesTheHandler) {
    std::vector<MessageBoxCall> shown;
    AfxSetMessageBoxHandler(RecordingHandler(shown, IDOK));
    AfxMessageBox("one");
    AfxMessageBox("two", 1, 2);
    ASSERT_EQ(shown.size(), 2u);
    EXPECT_EQ(shown[0].text, "one");
    EXPECT_EQ(shown[1].text, "two");
    EXPECT_EQ(shown[1].type, 1u);
    EXPECT_EQ(shown[1].helpId, 2u);
}
