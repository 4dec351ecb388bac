#pragma once

/// The kind of a project, one bit each, so editors can state the kinds they
/// serve as a mask.
enum QProjectType {
    ptCharacter = 2,
    ptStoryboard = 4,
    ptStage = 8,
    ptFont = 16,
    ptMotif = 32,
    ptFightFx = 64,
};

/// The kind of a file of a project; first field of every message.
enum QProjectFileType {
    pftDefinitions = 0,
    pftSprites = 1,
    pftAnimations = 2,
    pftCommands = 3,
    pftStates = 4,
    pftSounds = 5,
};
