"""Every pose of Ember's sprites, by sprite group and index, in the order the
sprite file lists them. Group numbers follow the engine's recommended ones:
0 standing, 10-11 crouching, 20-21 walking, 40-47 jumping, 120-122
guarding, 180 winning, 200 punching, 230 kicking, 400 punching while
crouching, 600 kicking in the air, 5000-5120 being hit,
falling, lying and getting up."""

import math

from ember_figure import Pose

STANCE = Pose()


def _stand(i):
    # Breathing: the chest rises and falls, the fists follow a little late.
    breath = (0.0, 0.5, 1.0, 0.5)[i]
    follow = (0.0, 0.2, 0.9, 1.0)[i]
    return STANCE.but(pelvis=(0.0, -31.0 + breath), hand_near=(13.0, -49.0 + follow),
                      hand_far=(8.0, -54.0 + follow * 1.5), tilt=-breath)


def _walk(i, backwards):
    phase = 2 * math.pi * i / 6
    swing = math.cos(phase)
    near_lift = 4.0 * max(0.0, -math.sin(phase))
    far_lift = 4.0 * max(0.0, math.sin(phase))
    bob = 1.0 * math.cos(2 * phase)
    return STANCE.but(pelvis=(0.0, -31.5 + bob), lean=-1.0 if backwards else 8.0,
                      ankle_near=(1.0 + 9.0 * swing, -2.5 - near_lift),
                      ankle_far=(-1.0 - 9.0 * swing, -2.5 - far_lift),
                      hand_near=(12.0 - 3.0 * swing, -50.0 + bob - (3.0 if backwards else 0.0)),
                      hand_far=(8.0 + 3.0 * swing, -54.0 + bob - (3.0 if backwards else 0.0)))


CROUCH = STANCE.but(pelvis=(0.0, -19.0), lean=22.0, ankle_near=(9.0, -2.5), ankle_far=(-9.0, -2.5),
                    hand_near=(15.0, -36.0), hand_far=(10.0, -40.0))
HALF_CROUCH = STANCE.but(pelvis=(0.0, -25.0), lean=15.0, ankle_near=(8.0, -2.5), ankle_far=(-8.5, -2.5),
                         hand_near=(14.0, -42.0), hand_far=(9.0, -47.0))
JUMP_UP = STANCE.but(pelvis=(0.0, -33.0), lean=4.0, ankle_near=(6.0, -13.0), ankle_far=(-6.0, -9.0),
                     foot_near=45.0, foot_far=50.0, hand_near=(11.0, -58.0), hand_far=(4.0, -60.0))
JUMP_DOWN = JUMP_UP.but(lean=2.0, ankle_near=(5.0, -6.0), ankle_far=(-6.0, -3.0), foot_near=35.0,
                        foot_far=40.0, hand_near=(13.0, -51.0), hand_far=(8.0, -55.0))
GUARD_ARMS = dict(hand_near=(13.0, -62.0), hand_far=(15.0, -55.0), elbow_near=(1.0, 1.0), elbow_far=(1.0, 1.0))
GUARD = STANCE.but(pelvis=(-3.0, -29.5), lean=-6.0, tilt=8.0, **GUARD_ARMS)
CROUCH_GUARD = CROUCH.but(lean=8.0, tilt=4.0, hand_near=(10.0, -45.0), hand_far=(12.0, -40.0),
                          elbow_near=(1.0, 0.6), elbow_far=(1.0, 0.8))
AIR_GUARD = JUMP_UP.but(lean=-4.0, tilt=6.0, **GUARD_ARMS)

PUNCH_CHAMBER = STANCE.but(pelvis=(-1.0, -31.0), lean=2.0, hand_near=(3.0, -47.0), hand_far=(9.0, -55.0))
PUNCH = STANCE.but(pelvis=(3.0, -30.0), lean=14.0, ankle_near=(12.0, -2.5), ankle_far=(-9.0, -2.5),
                   hand_near=(34.0, -51.0), hand_far=(6.0, -50.0), flame="arm")
PUNCH_RECOVER = PUNCH.but(pelvis=(1.0, -30.5), lean=8.0, hand_near=(20.0, -50.0), flame=None)

KICK_CHAMBER = STANCE.but(pelvis=(-2.0, -32.0), lean=-8.0, ankle_near=(10.0, -20.0), ankle_far=(-3.0, -2.5),
                          foot_near=40.0, hand_near=(9.0, -55.0), hand_far=(4.0, -57.0))
KICK = KICK_CHAMBER.but(pelvis=(-4.0, -32.0), lean=-22.0, ankle_near=(30.0, -36.0), foot_near=-75.0,
                        knee_near=(0.0, -1.0), hand_near=(4.0, -58.0), hand_far=(-4.0, -52.0), flame="leg")

CROUCH_PUNCH_CHAMBER = CROUCH.but(lean=16.0, hand_near=(6.0, -33.0), hand_far=(11.0, -40.0))
CROUCH_PUNCH = CROUCH.but(pelvis=(2.0, -19.0), lean=26.0, hand_near=(33.0, -36.0), hand_far=(8.0, -36.0),
                          flame="arm")

AIR_KICK_CHAMBER = JUMP_UP.but(lean=-2.0, ankle_near=(10.0, -16.0), foot_near=20.0)
AIR_KICK = JUMP_UP.but(lean=-10.0, ankle_near=(26.0, -14.0), foot_near=25.0, knee_near=(0.0, -1.0),
                       hand_near=(6.0, -60.0), hand_far=(-2.0, -56.0), flame="leg")

WIN = STANCE.but(pelvis=(0.0, -31.5), lean=-3.0, tilt=-8.0, ankle_near=(6.0, -2.5), ankle_far=(-6.0, -2.5),
                 hand_near=(6.0, -80.0), elbow_near=(1.0, 0.0), hand_far=(-2.0, -32.0), elbow_far=(-1.0, 0.0))


def _hit_high(strength):
    return STANCE.but(pelvis=(-2.0 - 2.0 * strength, -31.0), lean=-10.0 - 10.0 * strength,
                      tilt=-10.0 - 8.0 * strength, hand_near=(4.0 - 3.0 * strength, -42.0),
                      hand_far=(-6.0 - 3.0 * strength, -46.0), ankle_near=(9.0, -2.5))


def _hit_low(strength):
    return STANCE.but(pelvis=(-1.0 - strength, -30.0 + strength), lean=18.0 + 12.0 * strength,
                      tilt=8.0 + 5.0 * strength, hand_near=(7.0, -34.0 + 2.0 * strength),
                      hand_far=(3.0, -36.0 + 2.0 * strength), ankle_far=(-10.0, -2.5))


def _hit_crouching(strength):
    return CROUCH.but(pelvis=(-1.0 - strength, -19.0), lean=8.0 - 12.0 * strength, tilt=-8.0 - 8.0 * strength,
                      hand_near=(6.0, -33.0), hand_far=(-2.0, -38.0))


AIRBORNE = dict(ankle_near=(7.0, -6.0), ankle_far=(-3.0, -4.0), foot_near=40.0, foot_far=45.0,
                hand_near=(0.0, -40.0), hand_far=(-10.0, -44.0))
LYING = Pose(pelvis=(0.0, -31.0), lean=-4.0, tilt=-6.0, rotation=-90.0, on_ground=True,
             ankle_near=(4.0, -1.0), ankle_far=(-2.0, -2.0), foot_near=60.0, foot_far=70.0,
             hand_near=(2.0, -36.0), hand_far=(-4.0, -38.0), elbow_near=(0.0, 1.0), elbow_far=(0.0, 1.0))

# group, index, pose; the hit poses' group + 1 and + 2 repeat them with the
# axis on the middle of the body and on the head.
SPRITES = [(0, i, _stand(i)) for i in range(4)]
SPRITES += [(10, 0, HALF_CROUCH), (11, 0, CROUCH)]
SPRITES += [(20, i, _walk(i, False)) for i in range(6)]
SPRITES += [(21, i, _walk(5 - i, True)) for i in range(6)]
SPRITES += [(40, 0, HALF_CROUCH.but(lean=10.0, hand_near=(12.0, -44.0))), (41, 0, JUMP_UP), (44, 0, JUMP_DOWN)]
SPRITES += [(120, 0, GUARD), (121, 0, CROUCH_GUARD), (122, 0, AIR_GUARD)]
SPRITES += [(180, 0, WIN)]
SPRITES += [(200, 0, PUNCH_CHAMBER), (200, 1, PUNCH), (200, 2, PUNCH_RECOVER)]
SPRITES += [(230, 0, KICK_CHAMBER), (230, 1, KICK)]
SPRITES += [(400, 0, CROUCH_PUNCH_CHAMBER), (400, 1, CROUCH_PUNCH)]
SPRITES += [(600, 0, AIR_KICK_CHAMBER), (600, 1, AIR_KICK)]
SPRITES += [(5000, 10 * s, _hit_high(s)) for s in range(3)]
SPRITES += [(5010, 10 * s, _hit_low(s)) for s in range(3)]
SPRITES += [(5020, 10 * s, _hit_crouching(s)) for s in range(3)]
SPRITES += [(5030, 0, Pose(lean=-12.0, tilt=-12.0, rotation=-10.0, **AIRBORNE)),
            (5030, 10, Pose(lean=-20.0, tilt=-20.0, rotation=-25.0, **AIRBORNE)),
            (5030, 20, Pose(lean=30.0, tilt=10.0, rotation=60.0, **AIRBORNE)),
            (5030, 30, Pose(lean=-10.0, tilt=-10.0, rotation=-80.0, **AIRBORNE)),
            (5030, 40, Pose(lean=-6.0, tilt=-6.0, rotation=-110.0, **AIRBORNE)),
            (5030, 50, Pose(lean=-6.0, tilt=-6.0, rotation=-140.0, **AIRBORNE))]
SPRITES += [(5040, 0, LYING.but(rotation=-80.0)), (5040, 10, LYING),
            (5040, 20, LYING.but(tilt=-20.0, lean=-10.0, ankle_near=(6.0, -6.0), hand_near=(6.0, -44.0)))]
SPRITES += [(5060, 0, Pose(lean=-6.0, tilt=-10.0, **AIRBORNE)),
            (5060, 10, Pose(lean=-6.0, rotation=180.0, **AIRBORNE))]
SPRITES += [(5070, 0, Pose(lean=10.0, tilt=5.0, rotation=15.0, **AIRBORNE)),
            (5070, 10, Pose(lean=12.0, tilt=5.0, rotation=45.0, **AIRBORNE)),
            (5070, 20, Pose(lean=6.0, tilt=5.0, rotation=90.0, **AIRBORNE))]
SPRITES += [(5120, 0, LYING.but(rotation=-45.0, lean=20.0, tilt=10.0, ankle_near=(10.0, -6.0),
                                hand_far=(-12.0, -24.0))),
            (5120, 1, HALF_CROUCH.but(lean=25.0))]

# The groups whose pictures come again with the axis on the body's middle
# (group + 1) and head (group + 2), for throws that hold the character by them.
HELD_GROUPS = (5000, 5010, 5030, 5040, 5060, 5070)
