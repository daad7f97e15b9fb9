#include "ui/qt/forms/MessageForm.h"

#include "session/Session.h"
#include "ui_qt/User.h"

namespace vk {
namespace {

class MessageFormTest : public testing::Test {
 protected:
  void SetUp() override {
    owner.resize(600, 400);
    owner.move(100, 80);
    bringToFront(&owner);
    windows.add(Form::kMain, &owner);
  }
  int ask(std::vector<WindowText> captions, const std::string& text = "Testo", int icon = kNoIcon) {
    return form.ask(
        {.caption = "Titolo", .text = WindowText(text), .icon = icon, .captions = std::move(captions)});
  }
  void look(std::function<void(QWidget*)> at) {
    user.at("FrmMsg", std::move(at));
    user.press("FrmMsg", "CmdMsg(0)");
  }

  QWidget owner;
  Windows windows;
  FrmMsg form{windows, Session().settings.FontLabel};
  User user;
};

TEST_F(MessageFormTest, GivesTheNumberOfThePressedButton) {
  for (int i = 0; i < 3; ++i) {
    user.press("FrmMsg", QString("CmdMsg(%1)").arg(i));
    EXPECT_EQ(ask({"&Si", "&No", "&Continua"}), i + 1);
    EXPECT_EQ(form.Pressed, i + 1);
  }
}

TEST_F(MessageFormTest, OneButtonGives1) {
  user.press("FrmMsg", "CmdMsg(0)");
  EXPECT_EQ(ask({"&Continua"}), 1);
}

TEST_F(MessageFormTest, AccessKeysAndEnterPressButtons) {
  user.key("FrmMsg", Qt::Key_N, Qt::AltModifier);
  EXPECT_EQ(ask({"&Si", "&No"}), 2);
  user.key("FrmMsg", Qt::Key_Return);
  EXPECT_EQ(ask({"&Si", "&No"}), 1);
  user.key("FrmMsg", Qt::Key_Tab);
  user.key("FrmMsg", Qt::Key_Return);
  EXPECT_EQ(ask({"&Si", "&No"}), 2);
}

TEST_F(MessageFormTest, NeitherTheWindowControlNorEscapeCloses) {
  user.close("FrmMsg");
  user.key("FrmMsg", Qt::Key_Escape);
  user.press("FrmMsg", "CmdMsg(1)");
  EXPECT_EQ(ask({"&Si", "&No"}), 2);
}

TEST_F(MessageFormTest, ExtraButtonsAppearAndVanishInALaterCall) {
  look([](QWidget* shown) { EXPECT_TRUE(control<QPushButton>(shown, "CmdMsg(3)")->isVisible()); });
  ask({"&Continua", "&Esci", "Co&pia", "&Stampa"});
  look([](QWidget* shown) {
    EXPECT_TRUE(control<QPushButton>(shown, "CmdMsg(0)")->isVisible());
    EXPECT_FALSE(control<QPushButton>(shown, "CmdMsg(1)")->isVisible());
    EXPECT_EQ(shown->findChild<QPushButton*>("CmdMsg(2)"), nullptr);
  });
  ask({"&Continua"});
}

TEST_F(MessageFormTest, ShowsTheChosenIconOnly) {
  for (int icon = kNoIcon; icon <= kStop; ++icon) {
    look([icon](QWidget* shown) {
      int number = 0;
      for (const char* name : {"ImgDom", "ImgEsc", "ImgInf", "ImgStp"}) {
        EXPECT_EQ(control<QLabel>(shown, name)->isVisible(), ++number == icon) << name;
      }
    });
    ask({"&Si"}, "Testo", icon);
  }
}

TEST_F(MessageFormTest, StandsCentredOnItsOwner) {
  look([this](QWidget* shown) {
    const QPoint off = shown->frameGeometry().center() - owner.frameGeometry().center();
    EXPECT_LE(std::abs(off.x()), 1);
    EXPECT_LE(std::abs(off.y()), 1);
  });
  ask({"&Si", "&No"});
}

TEST_F(MessageFormTest, LongTextsAreBrokenWithinFiftyLetters) {
  const int letter = QFontMetrics(form.font()).horizontalAdvance('A') + 1;
  int width = 0, height = 0;
  const auto measure = [&](QWidget* shown) { width = shown->width(), height = shown->height(); };
  look(measure);
  ask({"&Si"}, "uno");
  const int low = height;
  for (const std::string& text : {std::string(400, 'M'), std::string("parola ") + std::string(393, 'm')}) {
    look(measure);
    ask({"&Si"}, text);
    EXPECT_LE(width, 50 * letter + 40);
    EXPECT_GT(height, low + 5 * 2 * (letter - 1)) << "at least six lines";
  }
}

TEST_F(MessageFormTest, TheOwnerIsInFrontAgainAfterwards) {
  user.press("FrmMsg", "CmdMsg(0)");
  ask({"&Si"});
  EXPECT_TRUE(QTest::qWaitForWindowActive(&owner));
  EXPECT_TRUE(owner.isEnabled());
}

TEST_F(MessageFormTest, AnEmptyTextIsAllowed) {
  user.press("FrmMsg", "CmdMsg(3)");
  EXPECT_EQ(ask({"&Continua", "&Esci", "Co&pia", "&Stampa"}, ""), 4);
}

TEST_F(MessageFormTest, AVanishedOwnerDoesNotStopTheDialog) {
  owner.hide();
  look([](QWidget* shown) {
    EXPECT_TRUE(shown->screen()->availableGeometry().contains(shown->frameGeometry()));
  });
  EXPECT_EQ(ask({"&Si"}), 1);
}

TEST_F(MessageFormTest, TellsCaptionAndTextToAssistiveTools) {
  look([](QWidget* shown) {
    EXPECT_EQ(shown->accessibleName(), "Titolo");
    EXPECT_EQ(shown->accessibleDescription(), "Il File <*>");
  });
  ask({"&Si"}, "Il File <*>");
}

TEST_F(MessageFormTest, NoButtonCaptionIsCutOff) {
  look([](QWidget* shown) {
    for (const char* name : {"CmdMsg(0)", "CmdMsg(1)", "CmdMsg(2)"}) {
      const auto* button = control<QPushButton>(shown, name);
      EXPECT_GE(button->width(), button->fontMetrics().horizontalAdvance(button->text().remove('&')) + 8)
          << name;
      EXPECT_GE(button->height(), button->fontMetrics().height());
    }
  });
  ask({"&Continua Modifica", "&Ignora e Esci", "&Visualizza Errori"});
}

}  // namespace
}  // namespace vk
