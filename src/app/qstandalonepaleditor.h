#pragma once

/**
 * The palette editor alone, as "-ape" starts it: the language and the look
 * of the configuration, then a modal PalEditor with no sprite file, for
 * palette files alone. No window is built, so the configuration is not
 * written. The managers must exist; returns when the editor closes.
 */
void runStandalonePalEditor();
