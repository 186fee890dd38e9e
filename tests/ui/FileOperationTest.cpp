#include "TestApplication.h"
#include "fakes/FakePlatform.h"
#include "ui/operation/QtFileOperation.h"

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
  std::int64_t Ticks() const override {
    return std::chrono::steady_clock::now().time_since_epoch() / 1ms;
  }
};

// An engine that a test writes, in the real windows over a main window with a text box.
class FileOperationTest : public testing::Test {
 protected:
  FileOperationTest() : Icons((TestApplication(), QStringLiteral(TARNWELL_TESTS "/../data"))) {
    Main.resize(300, 100);
    Edit.setParent(&Main);
    Main.show();
    Edit.setFocus();
  }
  ~FileOperationTest() override {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  OperationResult Run(std::function<int(OperationUser&)> work, std::uint16_t flags = 0) {
    Work = std::move(work);
    return Operation.Run(
        {FileFunction::Copy, std::string("/a/b\0", 5), std::string("/c/\0", 4), flags});
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
  // Runs once in the event loop of the operation, as soon as there is such a window.
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
  void After(int milliseconds, std::function<void()> react) {
    QTimer::singleShot(milliseconds, &Main, std::move(react));
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
  // Lets the work take that long, and answers whether it was cancelled.
  static bool Spend(OperationUser& user, std::chrono::milliseconds time) {
    const auto end = std::chrono::steady_clock::now() + time;
    platform::OperationProgress progress{.Function = FileFunction::Copy,
                                         .From = "/a/b",
                                         .To = "/c/b",
                                         .BytesTotal = 4096,
                                         .ItemsTotal = 2};
    while (std::chrono::steady_clock::now() < end) {
      progress.BytesDone = 1024;
      user.OnProgress(progress);
      if (!user.GoesOn()) return true;
      std::this_thread::sleep_for(2ms);
    }
    return false;
  }

  RealTicks Clock;
  fakes::FakeNumberForms Forms;
  IconSource Icons;
  QWidget Main;
  QLineEdit Edit;
  std::function<int(OperationUser&)> Work;
  QtFileOperation Operation{[this](const platform::OperationRequest&, OperationUser& user) {
                              return OperationResult{.Code = Work(user)};
                            },
                            {},
                            {base::PathSyntax::Posix(), Clock, Forms, Icons}};
};

TEST_F(FileOperationTest, EachAnswerArrivesAndTheDefaultLosesNothing) {
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

  // What there is to say at the end is said also after a cancel.
  const auto remark = [](OperationUser& user) {
    for (int file = 0; file < 1002; ++file) {
      user.OnRemark(platform::OperationRemark::Changed, "/a/" + std::to_string(file));
    }
    return Spend(user, 5s) ? 5 : 0;
  };
  When("Copying", escape);
  const auto readList = [&](QDialog& window) {
    const auto* const list = window.findChild<QListWidget*>();
    EXPECT_EQ(list->item(0)->text(), "/a/0");
    EXPECT_EQ(list->item(list->count() - 1)->text(), "and 2 items more");
    enter(window);
  };
  EXPECT_EQ(Ask("Noted", readList, remark), 5);
}

TEST_F(FileOperationTest, OnlyWorkThatTakesTimeShowsItsProgressAndPausesOrCancels) {
  bool seen = false;
  When("Copying", [&](QDialog&) { seen = true; });
  EXPECT_EQ(Run([](OperationUser& user) { return Spend(user, 100ms); }).Code, 0);
  EXPECT_EQ(Run([](OperationUser& user) { return Spend(user, 700ms); }, platform::Silent).Code, 0);
  EXPECT_FALSE(seen);

  std::atomic<int> steps = 0;
  int whilePaused = -1;
  When("25% - Copying", [&](QDialog& window) {
    EXPECT_EQ(window.findChild<QProgressBar*>()->value(), 25);
    ButtonOf(window, "Pause")->click();
    After(50, [&] { whilePaused = steps; });
    After(150, [&] {
      EXPECT_EQ(steps, whilePaused);
      ButtonOf(window, "Continue")->click();
      After(50, [&] {
        EXPECT_GT(steps, whilePaused);
        PressKey(window, Qt::Key_Escape);
      });
    });
  });
  EXPECT_EQ(Run([&](OperationUser& user) {
              while (!Spend(user, 10ms)) ++steps;
              return 7;
            }).Code,
            7);
  EXPECT_THROW(Run([](OperationUser&) -> int { throw std::runtime_error("engine"); }),
               std::runtime_error);
}

TEST_F(FileOperationTest, OtherWindowsTakeNothingAndASecondOperationIsRefused) {
  const auto type = [this] {
    PressKey(Edit, Qt::Key_A, {}, "a");
    QMimeData files;
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&Edit, &drop);
    EXPECT_FALSE(drop.isAccepted());
    const OperationResult second = Operation.Run({FileFunction::Delete, "", "", 0});
    EXPECT_NE(second.Code, 0);
    EXPECT_TRUE(second.Aborted);
  };
  After(20, type);  // before there is a window, and with it
  When("Copying", [&](QDialog&) { type(); });
  EXPECT_EQ(Run([](OperationUser& user) { return Spend(user, 650ms); }).Code, 0);
  EXPECT_EQ(Edit.text(), "");
  PressKey(Edit, Qt::Key_A, {}, "a");
  EXPECT_EQ(Edit.text(), "a");
}

TEST_F(FileOperationTest, ClosingTheProgramCancelsAndWaits) {
  const auto untilCancelled = [](OperationUser& user) { return Spend(user, 10s) ? 5 : 0; };
  // The window closes after the operation, whatever it was about to ask.
  After(20, [&] {
    EXPECT_FALSE(Main.close());
    EXPECT_TRUE(Main.isVisible());
  });
  EXPECT_EQ(Run(untilCancelled).Code, 5);
  EXPECT_TRUE(Main.isVisible());
  Settle();
  EXPECT_FALSE(Main.isVisible());
  Main.show();
  When("Missing", [&](QDialog&) { Main.close(); });
  EXPECT_EQ(Run([&](OperationUser& user) {
              EXPECT_EQ(user.OnMissingFolder("/c"), MissingFolderChoice::Cancel);
              return untilCancelled(user);
            }).Code,
            5);
  Settle();
  Main.show();

  // What is to come after it, even if asked for in the middle of it.
  bool ended = false;
  bool then = false;
  After(20, [&] { Operation.CancelThen([&] { then = ended; }); });
  Run([&](OperationUser& user) {
    ended = untilCancelled(user) == 5;
    return 0;
  });
  Settle();
  EXPECT_TRUE(then);

  // Without a window and its events.
  After(20, [&] { Operation.CancelAndWait(); });
  EXPECT_EQ(Run(untilCancelled).Code, 5);
  // When the program is told to quit, and when its loops are.
  for (const auto& quit : {QCoreApplication::quit, +[] { QCoreApplication::exit(); }}) {
    After(20, quit);
    After(0, [&] { EXPECT_EQ(Run(untilCancelled).Code, 5); });
    QApplication::exec();
    Main.show();
  }
}

}  // namespace
}  // namespace tarnwell::ui
