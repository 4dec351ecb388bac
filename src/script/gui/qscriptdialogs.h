#pragma once

class QWidget;

/// Lets scripts ask and tell the author through dialogs over `window`, and
/// shows the faults of their signal handlers in a message box.
void installScriptDialogs(QWidget* window);
