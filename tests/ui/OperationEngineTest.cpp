#include "TestApplication.h"
#include "fakes/FakePlatform.h"
#include "ui/operation/QtOperationEngine.h"

namespace tarnwell::ui {
namespace {

using namespace std::chrono_literals;
using platform::ConflictChoice;
using platform::FileFunction;
using platform::MissingFolderChoice;
using platform::OperationResult;
using platform::OperationUser;
using platform::TroubleChoice;

struct RealTicks : fakes::FakeClock {
  std::int64_t Ahead = 0;
  std::int64_t Ticks() const override {
    return Ahead + std::chrono::steady_clock::now().time_since_epoch() / 1ms;
  }
};

using Work = std::function<int(OperationUser&)>;

// Notes what it hears; the run goes with its end.
struct Listener : platform::OperationListener {
  std::unique_ptr<platform::OperationRun> Run;
  std::optional<OperationResult> Result;
  std::vector<bool> Asking;
  platform::ProgressReport Report;
  int Reports = 0;

  void OnProgress(const platform::ProgressReport& report) override {
    EXPECT_FALSE(Result);
    Report = report;
    ++Reports;
  }
  void OnAsking(bool isAsking) override {
    EXPECT_FALSE(Result);
    Asking.push_back(isAsking);
  }
  void OnDone(OperationResult result) override {
    EXPECT_FALSE(Result);
    Result = std::move(result);
    Run.reset();
  }
};

// The engine over work that a test writes, in the real windows over a main window with a text box.
class OperationEngineTest : public testing::Test {
 protected:
  OperationEngineTest() : Icons((TestApplication(), QStringLiteral(TARNWELL_TESTS "/../data"))) {
    Main.resize(300, 100);
    Edit.setParent(&Main);
    Main.show();
    Main.activateWindow();
    Edit.setFocus();
    Clock.Ahead = 1'000'000;
  }
  ~OperationEngineTest() override {
    Engine.CancelAndWait();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  void Start(Listener& listener, Work work, bool isWanted = true) {
    const std::string item = "/a/" + std::to_string(Started) + '\0';
    Works.at(Started++) = std::move(work);
    listener.Run = Engine.Start({FileFunction::Copy, item, std::string("/c/\0", 4)}, listener);
    if (isWanted) Engine.Settle([&] { return listener.Result.has_value(); });
  }
  // Lets events through until it is so, and fails where that never comes.
  template <typename Condition>
  static void Await(Condition isSo) {
    QDeadlineTimer limit(20s);
    while (!isSo() && !limit.hasExpired()) {
      QApplication::processEvents(QEventLoop::AllEvents, 10);
      QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    ASSERT_TRUE(isSo());
  }
  OperationResult Run(Work work) {
    Listener listener;
    Start(listener, std::move(work));
    Await([&] { return listener.Result.has_value(); });
    return listener.Result.value();
  }
  // What the engine gets for its question when the user reacts so to the window of that title.
  template <typename Question>
  auto Ask(const QString& title, std::function<void(QDialog&)> react, Question question) {
    std::optional<decltype(question(std::declval<OperationUser&>()))> answer;
    When(title, std::move(react));
    Run([&](OperationUser& user) {
      answer = question(user);
      return 0;
    });
    EXPECT_EQ(Dialog(title), nullptr);
    return answer.value();
  }
  // Runs once in the event loop, as soon as there is such a window.
  void When(const QString& title, std::function<void(QDialog&)> react) {
    auto* const poll = new QTimer(&Main);
    QObject::connect(poll, &QTimer::timeout, &Main, [=] {
      if (QDialog* const found = Dialog(title)) {
        poll->deleteLater();
        react(*found);
      }
    });
    poll->start(5);
  }
  static QDialog* Dialog(const QString& title) {
    for (QWidget* const each : QApplication::topLevelWidgets()) {
      auto* const dialog = qobject_cast<QDialog*>(each);
      if (dialog != nullptr && each->isVisible() && each->windowTitle().contains(title)) {
        return dialog;
      }
    }
    return nullptr;
  }
  // Works until it is cancelled.
  static int UntilCancelled(OperationUser& user) {
    user.OnProgress({.Function = FileFunction::Copy, .From = "/a/b", .To = {}, .BytesDone = 1024});
    while (user.GoesOn()) std::this_thread::sleep_for(2ms);
    return 5;
  }
  static MissingFolderChoice AskMissing(OperationUser& user) { return user.OnMissingFolder("/c"); }
  // As from the keyboard, by way of the native window.
  void Type() {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_A, {}, "a");
    QApplication::sendEvent(Main.windowHandle(), &press);
  }

  RealTicks Clock;
  fakes::FakeNumberForms Forms;
  IconSource Icons;
  QWidget Main;
  QLineEdit Edit;
  std::array<Work, 64> Works;
  std::size_t Started = 0;
  std::atomic<bool> IsFar = false;
  QtOperationEngine Engine{
      {.Run =
           [this](const platform::OperationRequest& request, OperationUser& user) {
             const std::size_t number = std::stoul(request.Items.substr(3));
             return OperationResult{.Code = Works.at(number)(user)};
           },
       .IsFar = [this](const std::string&) { return IsFar.load(); }},
      {base::PathSyntax::Posix(), Clock, Forms, Icons}};
};

TEST_F(OperationEngineTest, EachAnswerArrivesAndTheDefaultLosesNothing) {
  const platform::OperationConflict conflict{
      FileFunction::Copy,
      {.Path = "/a/new\xFF\n", .Size = 2000, .Modified = 9'000'000'000},
      {.Path = "/c/new\xFF\n", .Size = 1000, .Modified = 1'000'000'000}};
  platform::OperationConflict unlike = conflict;
  unlike.Target.Kind = platform::ItemKind::Folder;
  const auto enter = [](QDialog& window) { PressKey(*window.focusWidget(), Qt::Key_Return); };
  const auto escape = [](QDialog& window) { PressKey(window, Qt::Key_Escape); };
  const auto click = [](const char* caption, bool forAll = false) {
    return [caption, forAll](QDialog& window) {
      if (forAll) window.findChild<QCheckBox*>()->setChecked(true);
      ButtonOf(window, caption)->click();
    };
  };
  const auto meet = [&](const platform::OperationConflict& facts, auto react) {
    return Ask("Name Already Taken", react, [&](auto& user) { return user.OnConflict(facts); });
  };
  const auto is = [](const auto& answer, auto choice, bool forAll = false) {
    return answer.Choice == choice && answer.ForAll == forAll;
  };
  EXPECT_TRUE(is(meet(conflict, enter), ConflictChoice::Skip));
  EXPECT_TRUE(is(meet(conflict, escape), ConflictChoice::Cancel));
  EXPECT_TRUE(is(meet(conflict, click("Replace", true)), ConflictChoice::Replace, true));
  EXPECT_TRUE(is(meet(conflict, click("Keep Both")), ConflictChoice::KeepBoth));
  EXPECT_TRUE(is(meet(conflict, click("Replace If Older")), ConflictChoice::ReplaceOlder));
  const auto close = [&](QDialog& window) {
    EXPECT_EQ(ButtonOf(window, "Replace"), nullptr);
    window.close();
  };
  EXPECT_TRUE(is(meet(unlike, close), ConflictChoice::Cancel));
  // Within a folder that was merged none is asked of again, but for another spelling.
  platform::OperationConflict folders = unlike;
  folders.Source.Kind = platform::ItemKind::Folder;
  for (const bool isOtherSpelling : {false, true}) {
    const auto merge = [&](QDialog& window) {
      click("Merge")(window);
      if (isOtherSpelling) When("Name Already Taken", enter);
    };
    const auto below = [&](OperationUser& user) {
      platform::OperationConflict facts = folders;
      EXPECT_TRUE(is(user.OnConflict(facts), ConflictChoice::Replace));
      facts.Target.Path += "/below";
      facts.IsOtherSpelling = isOtherSpelling;
      return user.OnConflict(facts);
    };
    EXPECT_TRUE(is(Ask("Name Already Taken", merge, below),
                   isOtherSpelling ? ConflictChoice::Skip : ConflictChoice::Replace));
  }

  const auto trouble = [&](auto react) {
    return Ask("Problem", react, [](auto& user) {
      return user.OnTrouble(
          {platform::OperationStep::Write, "/c/b", {.Code = 28, .Reason = "No space left"}});
    });
  };
  EXPECT_EQ(trouble(click("Retry")), TroubleChoice::Retry);
  EXPECT_EQ(trouble(enter), TroubleChoice::Retry);
  EXPECT_EQ(trouble(click("Skip")), TroubleChoice::Skip);
  EXPECT_EQ(trouble(click("Skip All")), TroubleChoice::SkipAll);
  EXPECT_EQ(trouble(click("Cancel")), TroubleChoice::Cancel);
  const auto noTrash = [](auto& user) { return user.OnNoTrash("/a/b"); };
  EXPECT_TRUE(is(Ask("No Trash", enter, noTrash), platform::NoTrashChoice::Skip));
  EXPECT_TRUE(is(Ask("No Trash", click("Delete for Good", true), noTrash),
                 platform::NoTrashChoice::DeleteForGood, true));
  const auto loss = [](auto& user) { return user.OnLoss("/a/b"); };
  EXPECT_TRUE(is(Ask("Lost", enter, loss), platform::LossChoice::Skip));
  EXPECT_TRUE(
      is(Ask("Lost", click("Move Anyway", true), loss), platform::LossChoice::MoveAnyway, true));
  const auto missing = [](auto& user) { return user.OnMissingFolder("/c"); };
  EXPECT_EQ(Ask("Missing Folder", escape, missing), MissingFolderChoice::Cancel);
  EXPECT_EQ(Ask("Missing Folder", enter, missing), MissingFolderChoice::Make);
}

TEST_F(OperationEngineTest, RemarksAndFailuresAreToldByThemselvesAfterTheEnd) {
  // Also after a cancel, but not when nothing is to be told.
  for (const bool isLeft : {false, true}) {
    Listener listener;
    Start(listener, [](OperationUser& user) {
      for (int file = 0; file < 1002; ++file) {
        user.OnRemark(platform::OperationRemark::Changed, "/a/" + std::to_string(file));
      }
      return UntilCancelled(user);
    });
    isLeft ? listener.Run->Leave() : listener.Run->Cancel();
    Await([&] { return listener.Result.has_value(); });
    EXPECT_EQ(listener.Result->Code, 5);
    Settle();
    QDialog* const noted = Dialog("Noted");
    EXPECT_EQ(noted == nullptr, isLeft);
    if (noted == nullptr) continue;
    const auto* const list = noted->findChild<QListWidget*>();
    EXPECT_EQ(list->item(0)->text(), "/a/0");
    EXPECT_EQ(list->item(list->count() - 1)->text(), "and 2 items more");
    PressKey(*noted->focusWidget(), Qt::Key_Return);
    Settle();
    EXPECT_EQ(Dialog("Noted"), nullptr);
  }
  EXPECT_NE(Run([](OperationUser&) -> int { throw std::runtime_error("engine"); }).Code, 0);
  Settle();
  ASSERT_NE(Dialog("Noted"), nullptr);
  EXPECT_TRUE(Dialog("Noted")->accessibleDescription().contains("engine"));
  Dialog("Noted")->close();
}

TEST_F(OperationEngineTest, AQuestionOutOfTheBlueWaitsUntilItIsAskedFor) {
  std::vector<MissingFolderChoice> answers;
  std::atomic<bool> go = false;
  const auto ask = [&](OperationUser& user) {
    while (!go) std::this_thread::sleep_for(1ms);
    for (int i = 0; i < 2; ++i) answers.push_back(AskMissing(user));
    return UntilCancelled(user);
  };
  const auto escape = [] { PressKey(*Dialog("Missing"), Qt::Key_Escape); };
  for (const bool isTyped : {true, false}) {
    answers.clear();
    go = false;
    Listener listener;
    // Typed during it, or another one that went before has started it while somebody types.
    if (!isTyped) Type();
    Start(listener, ask, isTyped);
    if (isTyped) Type();
    go = true;
    Await([&] { return !listener.Asking.empty(); });
    const int reports = listener.Reports;
    Await([&] { return listener.Reports > reports + 1; });
    EXPECT_EQ(Dialog("Missing"), nullptr);
    listener.Run->ShowQuestion();
    ButtonOf(*Dialog("Missing"), "Answer Later")->click();
    Settle();
    EXPECT_EQ(Dialog("Missing"), nullptr);
    EXPECT_EQ(listener.Asking, std::vector{true});
    listener.Run->ShowQuestion();
    EXPECT_FALSE(Dialog("Missing")->isModal());
    Type();
    ButtonOf(*Dialog("Missing"), "Make Folder")->click();
    // The next one is what the answer leads to.
    Await([&] { return Dialog("Missing") != nullptr; });
    escape();
    Await([&] { return answers.size() == 2; });
    EXPECT_EQ(answers, (std::vector{MissingFolderChoice::Make, MissingFolderChoice::Cancel}));
    listener.Run->Cancel();
    Await([&] { return listener.Result.has_value(); });
    EXPECT_EQ(listener.Asking, (std::vector{true, false, true, false}));
  }
}

TEST_F(OperationEngineTest, RunsGoSideBySideAndPauseAndCancelEachForItself) {
  std::atomic<int> steps = 0;
  Listener first, second;
  Start(first, [&](OperationUser& user) {
    while (user.GoesOn()) {
      ++steps;
      std::this_thread::sleep_for(1ms);
    }
    return 7;
  });
  Start(second, [&](OperationUser& user) {
    return AskMissing(user) == MissingFolderChoice::Cancel ? UntilCancelled(user) : 0;
  });
  first.Run->Pause(true);
  Await([&] { return Dialog("Missing") != nullptr; });
  int before = steps;
  Await([&] { return first.Reports > 1; });
  EXPECT_LE(steps, before + 1);
  before = steps;
  first.Run->Pause(false);
  Await([&] { return steps > before + 5; });
  // A question that is open goes with its work.
  second.Run->Cancel();
  EXPECT_EQ(second.Asking, std::vector{true});
  Await([&] { return second.Result.has_value(); });
  EXPECT_EQ(Dialog("Missing"), nullptr);
  EXPECT_EQ(second.Asking, (std::vector{true, false}));
  EXPECT_EQ(second.Result->Code, 5);
  EXPECT_FALSE(first.Result);
  first.Run->Pause(true);
  first.Run->Cancel();
  Await([&] { return first.Result.has_value(); });
  EXPECT_EQ(first.Result->Code, 7);
  EXPECT_FALSE(Engine.AnyLeft());
}

TEST_F(OperationEngineTest, TheEndOfTheProgramWaitsUnlessAnotherMachineKeepsTheWork) {
  Listener listener, other;
  Start(listener, [](OperationUser& user) {
    EXPECT_EQ(AskMissing(user), MissingFolderChoice::Cancel);
    return UntilCancelled(user);
  });
  Start(other, UntilCancelled);
  other.Run.reset();
  Engine.CancelAndWait();
  EXPECT_FALSE(listener.Result);
  Await([&] { return listener.Result.has_value(); });
  EXPECT_EQ(listener.Result->Code, 5);
  EXPECT_FALSE(other.Result);

  std::atomic<bool> isLetGo = false;
  IsFar = true;
  Listener kept;
  Start(kept, [&](OperationUser&) {
    while (!isLetGo) std::this_thread::sleep_for(1ms);
    return 0;
  });
  kept.Run->Cancel();
  const int reports = kept.Reports;
  Await([&] { return kept.Reports > reports + 1; });
  Clock.Ahead += 5000;
  Await([&] { return kept.Result.has_value(); });
  EXPECT_TRUE(kept.Result->Aborted);
  EXPECT_TRUE(Engine.AnyLeft());
  Engine.CancelAndWait();
  isLetGo = true;
  Await([&] { return !Engine.AnyLeft(); });
}

}  // namespace
}  // namespace tarnwell::ui
