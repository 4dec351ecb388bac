#pragma once

// The handles of the dialog layer, one per bound Qt class, each derived from
// the handle of its bound base so that luabind's classes follow Qt's.

#include "qluaqobject.h"

class QAbstractButton;
class QAbstractScrollArea;
class QAbstractSlider;
class QAbstractSpinBox;
class QBoxLayout;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QDialog;
class QDoubleSpinBox;
class QFormLayout;
class QFrame;
class QGridLayout;
class QGroupBox;
class QHBoxLayout;
class QLabel;
class QLayout;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QProgressBar;
class QProgressDialog;
class QPushButton;
class QRadioButton;
class QScrollBar;
class QSlider;
class QSpinBox;
class QStackedLayout;
class QTableWidget;
class QTextEdit;
class QTreeWidget;
class QVBoxLayout;
class QWidget;
class QWizard;
class QWizardPage;

using LWidget = LHandle<QWidget, LQObject>;
using LFrame = LHandle<QFrame, LWidget>;
using LAbstractScrollArea = LHandle<QAbstractScrollArea, LFrame>;
using LLabel = LHandle<QLabel, LFrame>;
using LTextEdit = LHandle<QTextEdit, LAbstractScrollArea>;
using LPlainTextEdit = LHandle<QPlainTextEdit, LAbstractScrollArea>;
using LLineEdit = LHandle<QLineEdit, LWidget>;

using LLayout = LHandle<QLayout, LQObject>;
using LBoxLayout = LHandle<QBoxLayout, LLayout>;
using LVBoxLayout = LHandle<QVBoxLayout, LBoxLayout>;
using LHBoxLayout = LHandle<QHBoxLayout, LBoxLayout>;
using LStackedLayout = LHandle<QStackedLayout, LLayout>;
using LGridLayout = LHandle<QGridLayout, LLayout>;
using LFormLayout = LHandle<QFormLayout, LLayout>;

using LAbstractButton = LHandle<QAbstractButton, LWidget>;
using LPushButton = LHandle<QPushButton, LAbstractButton>;
using LRadioButton = LHandle<QRadioButton, LAbstractButton>;
using LCheckBox = LHandle<QCheckBox, LAbstractButton>;
using LButtonGroup = LHandle<QButtonGroup, LQObject>;

using LDialog = LHandle<QDialog, LWidget>;
using LGroupBox = LHandle<QGroupBox, LWidget>;
using LWizard = LHandle<QWizard, LDialog>;
using LWizardPage = LHandle<QWizardPage, LWidget>;

using LAbstractSpinBox = LHandle<QAbstractSpinBox, LWidget>;
using LIntEdit = LHandle<QSpinBox, LAbstractSpinBox>;
using LFloatEdit = LHandle<QDoubleSpinBox, LAbstractSpinBox>;

using LAbstractSlider = LHandle<QAbstractSlider, LWidget>;
using LSlider = LHandle<QSlider, LAbstractSlider>;
using LScrollBar = LHandle<QScrollBar, LAbstractSlider>;
using LProgressBar = LHandle<QProgressBar, LWidget>;
using LProgressDialog = LHandle<QProgressDialog, LDialog>;

using LComboBox = LHandle<QComboBox, LWidget>;
using LListWidget = LHandle<QListWidget, LAbstractScrollArea>;
using LTreeWidget = LHandle<QTreeWidget, LAbstractScrollArea>;
using LTableWidget = LHandle<QTableWidget, LAbstractScrollArea>;
