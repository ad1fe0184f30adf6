// tests/system/progress/mrvProgressTest.cpp
#include "mrvCore/system/progress/mrvProgress.h"

#include "mrvCore/system/progress/mrvIProgressListener.h"
#include "mrvCore/system/time/mrvSleep.h"

#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <string>
#include <vector>

namespace mrv {
namespace {

/// Writes each event as "name TYPE percent 'message'; ".
class Recorder : public IProgressListener
{
public:
    void onProgressEvent(const ProgressEvent& event) override
    {
        static const char* const names[] = { "NONE", "START", "PROGRESS", "MESSAGE", "SUCCES", "FAILURE" };
        _text += event._processName.c_str() + std::string(" ") + names[event._type] + " " +
                 std::to_string(event.getProgressPercentage());
        if (!event._message.empty())
            _text += std::string(" '") + event._message.c_str() + "'";
        _text += "; ";
        if (_action)
            _action(event);
    }

    std::string _text;
    std::function<void(const ProgressEvent&)> _action;
};

/// A root with own steps, a part that has a part itself, and one more part, all of them heard by one
/// recorder.
struct Tree
{
    Tree()
    {
        for (Progress* process : { &_root, _part.getImpl(), _leaf.getImpl(), _other.getImpl() })
            process->addListener(_recorder);
        _root.setOwnTodo(10);
        _root.addChild(_part, 40);
        _root.addChild(_other, 50);
        _part->addChild(_leaf, 100);
        _leaf->setOwnTodo(200);
        _other->setOwnTodo(4);
    }

    Recorder _recorder;
    Progress::SP _part{ new Progress("part") };
    Progress::SP _leaf{ new Progress("leaf") };
    Progress::SP _other{ new Progress("other") };
    Progress _root{ "root" }; // dies first
};

struct EventCase
{
    const char* name;
    void (*act)(Tree& tree);
    const char* events;
};

void clear(Tree& tree)
{
    tree._recorder._text.clear();
}

const EventCase eventCases[] = {
    { "aStartStartsTheParentsFirst", [](Tree& t) { t._leaf->start(); },
      "root START 0; root MESSAGE 0 'part'; part START 0; "
      "root MESSAGE 0 'part : leaf'; part MESSAGE 0 'leaf'; leaf START 0; " },
    { "aRunningParentIsOnlyTold",
      [](Tree& t) {
          t._root.start();
          clear(t);
          t._other->start();
      },
      "root MESSAGE 0 'other'; other START 0; " },
    { "onlyARiseOfTheWholePercentageIsTold",
      [](Tree& t) {
          t._leaf->start();
          clear(t);
          ++*t._leaf; // half a percent, rounded up on each level; parents are told first
          (*t._leaf)++;
          --*t._leaf;
          (*t._leaf)--;
          *t._leaf += 3;
      },
      "root PROGRESS 1; part PROGRESS 1; leaf PROGRESS 1; part PROGRESS 2; leaf PROGRESS 2; " },
    { "aMessageGoesUpWithTheNames",
      [](Tree& t) {
          t._leaf->start();
          clear(t);
          t._leaf->message("reading");
          t._root.message("own");
      },
      "root MESSAGE 0 'part : leaf : reading'; part MESSAGE 0 'leaf : reading'; leaf MESSAGE 0 'reading'; "
      "root MESSAGE 0 'own'; " },
    { "aSuccessEndsTheRunningPartsFirst",
      [](Tree& t) {
          t._leaf->start();
          clear(t);
          t._root.success();
      },
      "root MESSAGE 0 'part : leaf succeeded'; part MESSAGE 0 'leaf succeeded'; root PROGRESS 40; "
      "part PROGRESS 100; leaf PROGRESS 100; leaf SUCCES 100; root MESSAGE 40 'part succeeded'; "
      "part SUCCES 100; root PROGRESS 50; root SUCCES 50; " },
    { "aFailureTellsTheReasonToOwnListenersOnly",
      [](Tree& t) {
          t._leaf->start();
          *t._leaf += 100;
          clear(t);
          t._part->failure("no disk");
      },
      "root MESSAGE 20 'part : leaf failed'; part MESSAGE 50 'leaf failed'; leaf FAILURE 50 'no disk'; "
      "root MESSAGE 20 'part failed'; part FAILURE 50 'no disk'; " },
    { "idleStepsAreNotTold", [](Tree& t) { *t._leaf += 50; }, "" },
    { "aMessageMakesAnIdleProcessRun",
      [](Tree& t) {
          t._other->message("hello");
          *t._other += 1;
      },
      "root MESSAGE 0 'other : hello'; other MESSAGE 0 'hello'; root PROGRESS 13; other PROGRESS 25; " },
    { "aPartThatLeftIsNotAskedAndItsWeightStays",
      [](Tree& t) {
          t._leaf->start();
          t._part->reset();
          clear(t);
          t._leaf->message("alone");
          t._root += 10;
          t._root.success();
      },
      "leaf MESSAGE 0 'alone'; root PROGRESS 10; root SUCCES 10; " },
    { "withNothingToDoThereIsNoPercentage",
      [](Tree& t) {
          Progress empty("empty");
          empty.addListener(t._recorder);
          empty.start();
          empty.success();
      },
      "empty START 0; empty SUCCES 0; " },
};

class ProgressEvents : public testing::TestWithParam<EventCase>
{};

TEST_P(ProgressEvents, comeInOrderFromTheWholeTree)
{
    Tree tree;
    GetParam().act(tree);
    EXPECT_EQ(tree._recorder._text, GetParam().events);
}

INSTANTIATE_TEST_SUITE_P(Table, ProgressEvents, testing::ValuesIn(eventCases),
                         [](const auto& row) { return std::string(row.param.name); });

struct StepCase
{
    const char* name;
    unsigned int todo;
    std::vector<int> steps;
    unsigned int ownDone, ownTodo, percentage;
};

const StepCase stepCases[] = {
    { "halfAPercentCountsAsOne", 200, { 1 }, 1, 200, 1 },
    { "sevenPercentAreSeven", 100, { 7 }, 7, 100, 7 },
    { "thirtyInFloatAreALittleMore", 100, { 30 }, 30, 100, 31 },
    { "notBelowZero", 10, { 3, -5 }, 0, 10, 0 },
    { "stepsBeyondRaiseTheTodo", 10, { 15 }, 15, 15, 100 },
    { "thatLowersThePercentage", 10, { 15, -5 }, 10, 15, 67 },
    { "greatestStepBack", 10, { 3, INT_MIN }, 0, 10, 0 },
    { "greatestSteps", 10, { INT_MAX, INT_MAX }, 0, INT_MAX, 0 },
};

class ProgressSteps : public testing::TestWithParam<StepCase>
{};

TEST_P(ProgressSteps, countOwnStepsAndPercent)
{
    const StepCase& row = GetParam();
    Progress process("process");
    process.setOwnTodo(row.todo);
    process.start();
    for (int step : row.steps)
        process += step;
    EXPECT_EQ(process.getOwnDone(), row.ownDone);
    EXPECT_EQ(process.getOwnTodo(), row.ownTodo);
    EXPECT_EQ(process.getProgressPercentage(), row.percentage);
}

INSTANTIATE_TEST_SUITE_P(Table, ProgressSteps, testing::ValuesIn(stepCases),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Progresses, countDoneStepsOnlyWhileTheyRun)
{
    Progress process("process");
    process.setOwnTodo(10);
    process += 4;
    EXPECT_EQ(process.getOwnDone(), 4u);
    EXPECT_EQ(process.getDone(), 0u);
    process.start();
    EXPECT_EQ(process.getOwnDone(), 0u);
    process += 4;
    EXPECT_EQ(process.getDone(), 4u);
    process.success();
    EXPECT_FALSE(process.isRunning());
    EXPECT_EQ(process.getDone(), 10u);
    process.setOwnTodo(20);
    process += 1;
    EXPECT_EQ(process.getDone(), 10u);
    process.message("late");
    EXPECT_TRUE(process.isRunning());
    process.reset();
    EXPECT_EQ(process.getTodo() + process.getDone() + process.getOwnDone(), 0u);
    EXPECT_EQ(process.getLastEvent()._type, ProgressEvent::Type::NONE);
}

TEST(Progresses, tellTheTimeOfTheRunBeforeAtTheStart)
{
    Progress process("process");
    process.start();
    EXPECT_EQ(process.getLastEvent()._elapsedTime, 0);
    mrv::sleep(5);
    process.start();
    EXPECT_GT(process.getLastEvent()._elapsedTime, 0.004);
    EXPECT_LT(process.getElapsedRunningTime(), process.getLastEvent()._elapsedTime);
    process.reset();
    EXPECT_EQ(process.getElapsedRunningTime(), 0);
}

TEST(Progresses, aPartThatOnlyItsParentOwnsDiesWhenItLeaves)
{
    struct Part : Progress
    {
        explicit Part(bool& isGone) : Progress("part"), _isGone(isGone) {}
        ~Part() override { _isGone = true; }
        bool& _isGone;
    };
    bool isGone = false;
    Progress root("root");
    Progress* const part = new Part(isGone);
    root.addChild(part, 3);
    part->reset();
    EXPECT_TRUE(isGone);
    root.start();
    EXPECT_EQ(root.getTodo(), 3u);
}

TEST(Progresses, listenersMayTakeTheTreeApart)
{
    Recorder recorder;
    Progress root("root");
    for (const char* name : { "a", "b" })
    {
        Progress* const part = new Progress(name); // the root alone owns it
        root.addChild(part, 1);
        part->setOwnTodo(1);
        part->addListener(recorder);
        part->start();
    }
    recorder._action = [&root](const ProgressEvent& event) {
        if (event._type != ProgressEvent::Type::SUCCES)
            return;
        const_cast<Progress*>(event.getSource())->reset(); // leaves the root in the middle of its end
        root.addChild(new Progress("late"), 1);
    };
    recorder._text.clear();
    root.success();
    EXPECT_EQ(recorder._text, "a PROGRESS 100; a SUCCES 100; b PROGRESS 100; b SUCCES 100; ");
    EXPECT_EQ(root.getTodo(), 4u);
}

} // namespace
} // namespace mrv
