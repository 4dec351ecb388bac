// The dialog layer of the scripts: dialogs a script builds, driven as an
// author drives them, signals reaching Lua functions, who deletes what, and
// wrong calls raising Lua errors.
#include "model/qanimation.h"
#include "model/qanimationframe.h"
#include "model/qanimations.h"
#include "model/qproject.h"
#include "model/qsprites.h"
#include "realdata.h"
#include "script/gui/qluawidgets.h"
#include "script/qluaheaders.h"
#include "script/qluaobject.h"
#include "script/qscript.h"
#include "script/qscriptmanager.h"
#include "scripthost.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScopeGuard>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

namespace {

// Lets the deletions the scripts' objects asked for happen.
void flushDeletes()
{
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

QWidget* topLevelNamed(const QString& name)
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == name)
            return widget;
    }
    return nullptr;
}

} // namespace

class TestScriptWidgets : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        startScriptHost();
        QLuaProjects::installed().current = [this] { return m_project.get(); };
        installLuaWidgets();
        QScript::setReporter([this](const QString& title, const QString& text) { m_reports << title + QStringLiteral(": ") + text; });
    }

    void cleanup()
    {
        m_reports.clear();
        flushDeletes();
    }

    void scriptDialogIsDrivenAndRead()
    {
        QScript script;
        // While the script waits in exec(), the author fills the fields and presses OK.
        bool driven = false;
        QTimer::singleShot(0, this, [&driven] {
            // Whatever fails below, the script's exec() must end.
            const auto close = qScopeGuard([] {
                if (QWidget* modal = QApplication::activeModalWidget())
                    modal->close();
            });
            auto* dialog = qobject_cast<QDialog*>(topLevelNamed(QStringLiteral("renumber")));
            QVERIFY(dialog && dialog->isVisible());
            QCOMPARE(dialog->windowTitle(), QStringLiteral("Renumber"));
            auto* form = dialog->findChild<QFormLayout*>();
            QVERIFY(form);
            QCOMPARE(form->rowCount(), 4);
            auto* label = qobject_cast<QLabel*>(form->itemAt(0, QFormLayout::LabelRole)->widget());
            QCOMPARE(label->text(), QStringLiteral("Name"));
            auto* name = dialog->findChild<QLineEdit*>();
            auto* group = dialog->findChild<QSpinBox*>();
            auto* kind = dialog->findChild<QComboBox*>();
            auto* keep = dialog->findChild<QCheckBox*>();
            QVERIFY(name && group && kind && keep);
            QCOMPARE(group->maximum(), 9999);
            QCOMPARE(kind->count(), 3);
            QVERIFY(!keep->isChecked());
            name->clear();
            QTest::keyClicks(name, QStringLiteral("Walk"));
            group->selectAll();
            QTest::keyClicks(group, QStringLiteral("120"));
            kind->setCurrentIndex(2);
            QTest::mouseClick(keep, Qt::LeftButton, Qt::NoModifier, QPoint(8, keep->height() / 2));
            QPushButton* ok = nullptr;
            for (QPushButton* button : dialog->findChildren<QPushButton*>()) {
                if (button->text() == QStringLiteral("OK"))
                    ok = button;
            }
            QVERIFY(ok);
            QTest::mouseClick(ok, Qt::LeftButton);
            driven = true;
        });
        runIn(script, QStringLiteral(
            "local dlg = Dialog{windowTitle = 'Renumber', objectName = 'renumber', minW = 260}\n"
            "local name = LineEdit{text = 'Stand', placeholderText = 'name'}\n"
            "local group = IntEdit{max = 9999, value = 5}\n"
            "local kind = ComboBox{items = {'Sprites', 'Actions', 'Both'}}\n"
            "local keep = CheckBox('Keep gaps')\n"
            "local form = FormLayout()\n"
            "form:addRow('Name', name)\n"
            "form:addRow('Group', group)\n"
            "form:addRow('Kind', kind)\n"
            "form:addRow(keep)\n"
            "local ok, cancel = PushButton('OK'), PushButton{text = 'Cancel'}\n"
            "ok.clicked = function() dlg:accept() end\n"
            "cancel.clicked = function() dlg:reject() end\n"
            "local buttons = HBoxLayout()\n"
            "buttons:addStretch()\n"
            "buttons:addWidget(ok)\n"
            "buttons:addWidget(cancel)\n"
            "local box = VBoxLayout()\n"
            "box:addLayout(form)\n"
            "box:addLayout(buttons)\n"
            "dlg.layout = box\n"
            "code = dlg:exec()\n"
            "result = string.format('%s|%d|%s|%d|%s', name.text, group.value, kind.currentText, kind.currentIndex,\n"
            "                       tostring(keep.checked))\n"));
        QVERIFY(driven);
        QCOMPARE(number(script, "code"), 1.0);
        QCOMPARE(string(script, "result"), QStringLiteral("Walk|120|Both|2|true"));
        QVERIFY(m_reports.isEmpty());
    }

    void signalsReachLuaFunctions()
    {
        QScript script;
        runIn(script, QStringLiteral(
            "edit = LineEdit{objectName = 'edit'}\n"
            "seen, calls = nil, 0\n"
            "edit.textChanged = function(text) seen = text; calls = calls + 1 end\n"
            "isFunction = type(edit.textChanged) == 'function'\n"
            "combo = ComboBox{items = {'a', 'b', 'c'}}\n"
            "combo.activated = function(i) index = i end\n"
            "combo.activatedString = function(t) text = t end\n"
            "combo.currentIndexChangedString = function(t) current = t end\n"
            "spin = FloatEdit{decimals = 2}\n"
            "spin.valueChanged = function(v) value = v end\n"
            "spin.value = 2.5\n"
            "group = ButtonGroup()\n"
            "a, b = RadioButton('a'), RadioButton('b')\n"
            "group:addButton(a, 4)\n"
            "group:addButton(b, 7)\n"
            "group.buttonClicked = function(id) clicked = id end\n"));
        QCOMPARE(string(script, "isFunction"), QStringLiteral("true"));
        QCOMPARE(number(script, "value"), 2.5);

        runIn(script, QStringLiteral("edit.text = 'punch'"));
        QCOMPARE(string(script, "seen"), QStringLiteral("punch"));
        // A second assignment replaces the function; nil disconnects.
        runIn(script, QStringLiteral("edit.textChanged = function(text) other = text end\nedit.text = 'kick'"));
        QCOMPARE(number(script, "calls"), 1.0);
        QCOMPARE(string(script, "other"), QStringLiteral("kick"));
        runIn(script, QStringLiteral("edit.textChanged = nil\nedit.text = 'throw'\nisNil = edit.textChanged == nil"));
        QCOMPARE(string(script, "other"), QStringLiteral("kick"));
        QCOMPARE(string(script, "isNil"), QStringLiteral("true"));

        // The split signals of a combo box: the index or the text.
        runIn(script, QStringLiteral("combo:show()"));
        auto* combo = qobject_cast<QComboBox*>(topLevelWidget<QComboBox>());
        QVERIFY(combo);
        combo->setFocus();
        QTest::keyClick(combo, Qt::Key_Down);
        QCOMPARE(string(script, "current"), QStringLiteral("b"));
        QCOMPARE(number(script, "index"), 1.0);
        QCOMPARE(string(script, "text"), QStringLiteral("b"));
        runIn(script, QStringLiteral("b:click()"));
        QCOMPARE(number(script, "clicked"), 7.0);

        // An error inside a handler is reported and the widget goes on.
        runIn(script, QStringLiteral("edit.textChanged = function(t) error('handler broke on ' .. t) end\nedit.text = 'x'\nafter = edit.text"));
        QCOMPARE(string(script, "after"), QStringLiteral("x"));
        QCOMPARE(m_reports.size(), 1);
        QVERIFY2(m_reports.first().startsWith(QStringLiteral("Script error: ")) &&
                     m_reports.first().contains(QStringLiteral("handler broke on x")),
                 qPrintable(m_reports.first()));
    }

    void eventsReachLuaHandlers()
    {
        QScript script;
        runIn(script, QStringLiteral(
            "w = Widget{objectName = 'pad'}\n"
            "w:resize(120, 80)\n"
            "w.mousePressEvent = function(e) px, py, button = e.x, e.y, e.button; kept = e; return true end\n"
            "w.resizeEvent = function(e) width = e.width end\n"
            "w:show()\n"));
        QWidget* pad = topLevelNamed(QStringLiteral("pad"));
        QVERIFY(pad);
        QVERIFY(QTest::qWaitForWindowExposed(pad));
        QTest::mouseClick(pad, Qt::LeftButton, Qt::NoModifier, QPoint(30, 40));
        QCOMPARE(number(script, "px"), 30.0);
        QCOMPARE(number(script, "py"), 40.0);
        QCOMPARE(number(script, "button"), double(Qt::LeftButton));
        QCOMPARE(number(script, "width"), 120.0);
        // An event kept past its handler is over, not freed memory.
        QVERIFY(errorOf(script, QStringLiteral("return kept.x")).contains(QStringLiteral("the event is over")));
    }

    void ownershipFollowsParents()
    {
        QPointer<QWidget> parent;
        QPointer<QWidget> child;
        QPointer<QWidget> placed;
        QPointer<QWidget> loose;
        {
            QScript script;
            runIn(script, QStringLiteral(
                "p = Widget{objectName = 'parent'}\n"
                "c = Label{text = 'child', objectName = 'child'}\n"
                "c:setParent(p)\n"
                // A widget only a layout holds, before the layout is on a widget.
                "lay = VBoxLayout()\n"
                "lay:addWidget(Label{objectName = 'placed'})\n"
                "collectgarbage()\n"));
            flushDeletes();
            parent = topLevelNamed(QStringLiteral("parent"));
            QVERIFY(parent);
            child = parent->findChild<QLabel*>(QStringLiteral("child"));
            QVERIFY(child);
            runIn(script, QStringLiteral("holder = Widget{objectName = 'holder'}\nholder.layout = lay\nlay = nil\ncollectgarbage()"));
            flushDeletes();
            QWidget* holder = topLevelNamed(QStringLiteral("holder"));
            QVERIFY(holder);
            placed = holder->findChild<QLabel*>(QStringLiteral("placed"));
            QVERIFY2(placed, "the layout's widget was deleted before the layout was placed");

            // The parent goes: its child goes with it, and Lua's handle on the child knows.
            runIn(script, QStringLiteral("p = nil\ncollectgarbage()"));
            flushDeletes();
            QVERIFY(parent.isNull());
            QVERIFY(child.isNull());
            QVERIFY(errorOf(script, QStringLiteral("return c.text")).contains(QStringLiteral("deleted object")));
            runIn(script, QStringLiteral("c = nil\ncollectgarbage()"));
            flushDeletes();

            // A widget the program made and lent to the script stays the program's.
            auto* own = new QLabel(QStringLiteral("program's"), holder);
            own->setObjectName(QStringLiteral("own"));
            runIn(script, QStringLiteral("found = holder:findChild('own')\nisLabel = found.text == \"program's\"\nfound = nil\ncollectgarbage()"));
            QCOMPARE(string(script, "isLabel"), QStringLiteral("true"));
            flushDeletes();
            QVERIFY(holder->findChild<QLabel*>(QStringLiteral("own")));
            runIn(script, QStringLiteral("keep = Dialog{objectName = 'loose'}"));
            loose = topLevelNamed(QStringLiteral("loose"));
            QVERIFY(loose);
        }
        // The state closed: what the script still held and Qt did not own is gone.
        flushDeletes();
        QVERIFY(loose.isNull());
        QVERIFY(placed.isNull());
        QVERIFY(!topLevelNamed(QStringLiteral("holder")));
    }

    // Each family in use: the members a script reaches for, on objects it made.
    void everyFamilyWorks()
    {
        QScript script;
        runIn(script, QStringLiteral(
            "local w = Widget{minW = 50, maxH = 300, toolTip = 'tip', hidden = true}\n"
            "assert(w.minWidth == 50 and w.maxHeight == 300 and w.hidden and w.toolTip == 'tip')\n"
            "w:resize(90, 70)\n"
            "assert(w.width == 90 and w.heigth == 70)\n"
            "local grid = GridLayout{hSpacing = 3}\n"
            "grid:addWidget(Label('a'), 0, 0)\n"
            "grid:addWidget(Label('b'), 1, 0, 1, 2)\n"
            "local stack = StackedLayout()\n"
            "stack:addWidget(Frame{frameShape = Frame.Box})\n"
            "stack:addWidget(GroupBox{title = 'g', checkable = true})\n"
            "stack.currentIndex = 1\n"
            "assert(stack.currentWidget.title == 'g')\n"
            "local box = HBoxLayout()\n"
            "box:addSpacerItem(SpacerItem(10, 10, SpacerItem.Expanding, SpacerItem.Minimum))\n"
            "box:addLayout(grid)\n"
            "box:addLayout(stack, 1)\n"
            "w.layout = box\n"
            "assert(grid.rowCount == 2 and box.count == 3)\n"
            "local slider = Slider{orientation = Slider.Horizontal, max = 40, value = 30, tickInterval = 5}\n"
            "slider:setRange(0, 20)\n"
            "assert(slider.value == 20 and slider.max == 20)\n"
            "local bar = ProgressBar{max = 10, value = 4}\n"
            "assert(bar.value == 4)\n"
            "local scroll = ScrollBar(ScrollBar.Vertical)\n"
            "assert(scroll.orientation == ScrollBar.Vertical)\n"
            "local progress = ProgressDialog{labelText = 'work', max = 5, minDuration = 100000}\n"
            "progress.value = 3\n"
            "assert(progress.value == 3 and not progress.wasCanceled)\n"
            "local text = TextEdit{plainText = 'one'}\n"
            "text:append('two')\n"
            "assert(text.plainText == 'one\\ntwo')\n"
            "local plain = PlainTextEdit{readOnly = true}\n"
            "plain:appendPlainText('x')\n"
            "assert(plain.plainText == 'x' and plain.readOnly)\n"
            "local line = LineEdit{echoMode = LineEdit.Password, maxLength = 4, text = 'secret'}\n"
            "assert(line.text == 'secr' and line.displayText ~= 'secr')\n"
            "local float = FloatEdit{decimals = 1, max = 2, singleStep = 0.5, value = 1.25}\n"
            "assert(float.value == 1.2 or float.value == 1.3)\n"
            "local check = CheckBox{tristate = true, checkState = CheckBox.PartiallyChecked}\n"
            "assert(check.checkState == CheckBox.PartiallyChecked)\n"
            "local push = PushButton{text = 'Go', checkable = true}\n"
            "push.shortcut = KeySequence('Ctrl+G')\n"
            "assert(tostring(push.shortcut) == 'Ctrl+G' and push.shortcut == KeySequence('Ctrl+G'))\n"
            "push:toggle()\n"
            "assert(push.checked)\n"
            "local list = ListWidget()\n"
            "list:addItems({'b', 'a'})\n"
            "list:addItem(ListWidgetItem{text = 'c', checkState = CheckBox.Checked})\n"
            "list:sortItems()\n"
            "assert(list:item(0).text == 'a' and list:item(2).checkState == CheckBox.Checked)\n"
            "local taken = list:takeItem(0)\n"
            "assert(taken.text == 'a' and list.count == 2 and list:item(0) < list:item(1))\n"
            "local tree = TreeWidget{columnCount = 2, headerLabels = {'Name', 'Value'}}\n"
            "local root = TreeWidgetItem({'root', '1'})\n"
            "root:addChild(TreeWidgetItem({'leaf', '2'}))\n"
            "tree:addTopLevelItem(root)\n"
            "assert(tree.topLevelItemCount == 1 and tree:topLevelItem(0):child(0):text(1) == '2')\n"
            "assert(tree.headerLabels[2] == 'Value')\n"
            "local grid2 = TableWidget(2, 3)\n"
            "grid2.hHeader = {'A', 'B', 'C'}\n"
            "grid2:setItem(1, 2, TableWidgetItem('z'))\n"
            "grid2:setText(0, 0, 'first')\n"
            "grid2:setRangeSelected(TableWidgetSelectionRange(0, 0, 1, 1), true)\n"
            "assert(grid2:item(1, 2).text == 'z' and grid2:text(0, 0) == 'first' and grid2.hHeader[3] == 'C')\n"
            "assert(grid2.selectedRanges[1].rowCount == 2)\n"
            "local wizard = Wizard{windowTitle = 'New'}\n"
            "local page = WizardPage{title = 'One', subTitle = 'first'}\n"
            "local name = LineEdit()\n"
            "page.layout = VBoxLayout()\n"
            "page.layout:addWidget(name)\n"
            "page:registerField('name', name)\n"
            "local id = wizard:addPage(page)\n"
            "wizard:setField('name', 'Ember')\n"
            "assert(name.text == 'Ember' and wizard:field('name') == 'Ember' and wizard.pageIds[1] == id)\n"
            "done = true\n"));
        QCOMPARE(string(script, "done"), QStringLiteral("true"));
    }

    void wrongArgumentsRaiseLuaErrors()
    {
        QScript script;
        QVERIFY(errorOf(script, QStringLiteral("Label(5)")).contains(QStringLiteral("No matching overload")));
        QVERIFY(errorOf(script, QStringLiteral("LineEdit{txet = 'x'}")).contains(QStringLiteral("LineEdit has no property 'txet'")));
        const QString wrongValue = errorOf(script, QStringLiteral("IntEdit{value = 'ten'}"));
        QVERIFY2(wrongValue.contains(QStringLiteral("IntEdit.value")), qPrintable(wrongValue));
        QVERIFY(errorOf(script, QStringLiteral("local setText = Label().setText\nsetText(PushButton('b'), 'x')"))
                    .contains(QStringLiteral("QLabel expected, got QPushButton")));
        QVERIFY(errorOf(script, QStringLiteral("VBoxLayout():addWidget('label')")).contains(QStringLiteral("No matching overload")));
        QVERIFY(errorOf(script, QStringLiteral("local s = SpacerItem(1, 1)\nlocal l = VBoxLayout()\nl:addItem(s)\nl:addItem(s)"))
                    .contains(QStringLiteral("already in a layout")));
        QVERIFY(errorOf(script, QStringLiteral("local l = ListWidget()\nl:addItem('a')\nlocal i = l:item(0)\nl:clear()\nreturn i.text"))
                    .contains(QStringLiteral("deleted object")));
        // The state is still usable after the errors.
        runIn(script, QStringLiteral("ok = Label{text = 'still here'}.text"));
        QCOMPARE(string(script, "ok"), QStringLiteral("still here"));
    }

    // The shipped tool that renumbers a sprite group through its own dialog, on a copy of kfm.
    void renumberGroupTool()
    {
        const QString source = realDataDir() + QStringLiteral("/fanyer__mugen/chars/kfm");
        if (realDataDir().isEmpty() || !QFile::exists(source + QStringLiteral("/kfm.def")))
            QSKIP("kfm of the real engine files not found: set PF_REALDATA or place ../shared/realdata");
        QTemporaryDir dir;
        for (const QString& name : QDir(source).entryList(QDir::Files))
            QFile::copy(source + QLatin1Char('/') + name, dir.filePath(name));
        m_project = std::make_unique<QProject>();
        QVERIFY(m_project->open(dir.filePath(QStringLiteral("kfm.def")), 0, false, false));
        QSprites* sprites = m_project->sprites();
        QList<int> indices;
        for (int i = 0; i < sprites->count(); ++i) {
            if (sprites->at(i)->itemGroup() == 200)
                indices << sprites->at(i)->itemIndex();
        }
        std::sort(indices.begin(), indices.end());
        QVERIFY(indices.size() >= 3);
        // The text model may rebuild its actions on an edit: the frame is looked up each time.
        const auto punchFrame = [this] {
            QAnimations* actions = m_project->animations();
            return actions->at(actions->find(0, 200))->frame(1);
        };
        const int oldIndex = punchFrame()->spriteIndex();
        QCOMPARE(punchFrame()->spriteGroup(), 200);

        QString summary;
        QTimer::singleShot(0, this, [&summary] {
            const auto close = qScopeGuard([] {
                if (QWidget* modal = QApplication::activeModalWidget())
                    modal->close();
            });
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            QCOMPARE(dialog->windowTitle(), QStringLiteral("Renumber sprite group"));
            const QList<QSpinBox*> fields = dialog->findChildren<QSpinBox*>();
            QCOMPARE(fields.size(), 4);
            fields.at(0)->setValue(200);
            fields.at(1)->setValue(7300);
            fields.at(2)->setValue(10);
            fields.at(3)->setValue(2);
            for (QLabel* label : dialog->findChildren<QLabel*>()) {
                if (label->wordWrap())
                    summary = label->text();
            }
            for (QPushButton* button : dialog->findChildren<QPushButton*>()) {
                if (button->text() == QStringLiteral("Renumber"))
                    QTest::mouseClick(button, Qt::LeftButton);
            }
        });
        QScript script;
        try {
            script.fromFile(QStringLiteral("tool/Sprites/Renumber group"));
            luabind::call_function<void>(script.state(), "main");
        } catch (const std::exception& error) {
            QFAIL(qPrintable(script.describe(error)));
        }
        // The dialog told the author what would happen before they pressed the button.
        QCOMPARE(summary, QStringLiteral("%1 sprites of group 200 become 7300,10 to 7300,%2.")
                              .arg(indices.size()).arg(10 + 2 * (indices.size() - 1)));
        QList<int> renumbered;
        for (int i = 0; i < sprites->count(); ++i) {
            QVERIFY(sprites->at(i)->itemGroup() != 200);
            if (sprites->at(i)->itemGroup() == 7300)
                renumbered << sprites->at(i)->itemIndex();
        }
        std::sort(renumbered.begin(), renumbered.end());
        QCOMPARE(renumbered.size(), indices.size());
        for (int k = 0; k < renumbered.size(); ++k)
            QCOMPARE(renumbered.at(k), 10 + 2 * k);
        // The punch's frame follows its sprite to the new number.
        QCOMPARE(punchFrame()->spriteGroup(), 7300);
        QCOMPARE(punchFrame()->spriteIndex(), 10 + 2 * int(indices.indexOf(oldIndex)));
        // The sprites' renumbering is one undo step.
        sprites->undo();
        for (int i = 0; i < sprites->count(); ++i)
            QVERIFY(sprites->at(i)->itemGroup() != 7300);
        m_project.reset();
    }

private:
    void runIn(QScript& script, const QString& code)
    {
        try {
            script.fromString(code);
        } catch (const std::exception& error) {
            QFAIL(qPrintable(script.describe(error)));
        }
    }

    // The message of the Lua error `code` raises, without its position.
    static QString errorOf(QScript& script, const QString& code)
    {
        try {
            script.fromString(code);
        } catch (const std::exception& error) {
            QString message = QString::fromUtf8(error.what());
            static const QRegularExpression position(QStringLiteral("^[^:]*:\\d+: "));
            return message.remove(position);
        }
        return QStringLiteral("(no error)");
    }

    static double number(QScript& script, const char* name)
    {
        lua_getglobal(script.state(), name);
        const double value = lua_tonumber(script.state(), -1);
        lua_pop(script.state(), 1);
        return value;
    }

    static QString string(QScript& script, const char* name)
    {
        lua_getglobal(script.state(), name);
        const char* text = luaL_tolstring(script.state(), -1, nullptr);
        const QString value = QString::fromUtf8(text);
        lua_pop(script.state(), 2);
        return value;
    }

    template<class W>
    static W* topLevelWidget()
    {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (auto* found = qobject_cast<W*>(widget))
                return found;
        }
        return nullptr;
    }

    QStringList m_reports;
    std::unique_ptr<QProject> m_project;
};

QTEST_MAIN(TestScriptWidgets)
#include "tst_scriptwidgets.moc"
