"""Ember's body: a jointed figure posed by where its feet and fists go, drawn
as shaded pixel art facing right.

Body space has its origin on the ground between the feet, x forward and y
down, in pixels of the engine's 320x240 screen. A pose names the pelvis, the
lean of the spine, the tilt of the head, and the targets of the four limbs;
knees and elbows bend by two-bone inverse kinematics towards a hint."""

import math

from pixelart import Canvas, Capsule, Polygon
from ember_palettes import (BOOTS, EYE_WHITE, FIRE, HAIR, IRIS, MOUTH, OUTLINE, PANTS, SASH, SKIN,
                            VEST, WRAPS)

SPINE = 21.0
NECK = 8.5
HEAD_RADIUS = 7.0
THIGH = 14.5
SHIN = 14.5
UPPER_ARM = 10.5
FOREARM = 10.0
FOOT = 5.5

# Where the body origin lies on the working canvas.
CANVAS_WIDTH, CANVAS_HEIGHT = 180, 150
ORIGIN = (90, 128)


class Pose:
    """Everything that places the figure; keyword arguments override the
    relaxed fighting stance."""

    def __init__(self, **changes):
        self.pelvis = (0.0, -31.0)
        self.lean = 6.0
        self.tilt = 0.0
        self.ankle_near, self.ankle_far = (7.0, -2.5), (-8.0, -2.5)
        self.knee_near, self.knee_far = (1.0, 0.0), (1.0, 0.0)
        self.foot_near, self.foot_far = 0.0, 0.0
        self.hand_near, self.hand_far = (13.0, -49.0), (8.0, -54.0)
        self.elbow_near, self.elbow_far = (-0.4, 1.0), (-0.4, 1.0)
        self.rotation = 0.0
        self.on_ground = False
        self.flame = None  # 'arm' or 'leg': the near limb that strikes trails fire
        for key, value in changes.items():
            if not hasattr(self, key):
                raise KeyError(key)
            setattr(self, key, value)

    def but(self, **changes):
        """A copy with some values changed."""
        copy = Pose()
        copy.__dict__.update(self.__dict__)
        for key, value in changes.items():
            if not hasattr(copy, key):
                raise KeyError(key)
            setattr(copy, key, value)
        return copy


def _add(p, q, k=1.0):
    return (p[0] + q[0] * k, p[1] + q[1] * k)


def _unit(v):
    length = math.hypot(v[0], v[1])
    return (v[0] / length, v[1] / length) if length else (0.0, 1.0)


def _angle_vector(degrees):
    """The unit vector of a direction measured from straight down, positive
    towards the front."""
    r = math.radians(degrees)
    return (math.sin(r), math.cos(r))


def _two_bone(root, target, first, second, hint):
    """The middle joint and the reached end of a limb from root towards target."""
    d = (target[0] - root[0], target[1] - root[1])
    distance = math.hypot(d[0], d[1])
    distance = max(abs(first - second) + 0.01, min(first + second - 0.01, distance))
    direction = _unit(d)
    cos_a = (first * first + distance * distance - second * second) / (2 * first * distance)
    a = math.acos(max(-1.0, min(1.0, cos_a)))
    best = None
    for sign in (1, -1):
        c, s = math.cos(sign * a), math.sin(sign * a)
        v = (direction[0] * c - direction[1] * s, direction[0] * s + direction[1] * c)
        joint = _add(root, v, first)
        score = v[0] * hint[0] + v[1] * hint[1]
        if best is None or score > best[0]:
            best = (score, joint)
    return best[1], _add(root, direction, distance)


class Skeleton:
    """The joints of a pose, in canvas pixels."""

    def __init__(self, pose):
        up = (math.sin(math.radians(pose.lean)), -math.cos(math.radians(pose.lean)))
        front = (-up[1], up[0])
        pelvis = pose.pelvis
        neck = _add(pelvis, up, SPINE)
        head_up = _unit(_add(up, (-up[1], up[0]), math.tan(math.radians(pose.tilt))))
        head = _add(_add(neck, head_up, NECK), front, 1.0)
        body = {
            "origin": (0.0, 0.0), "pelvis": pelvis, "chest": _add(pelvis, up, 12.0), "neck": neck,
            "head": head,
            "shoulder_near": _add(_add(neck, up, -2.5), front, 2.0),
            "shoulder_far": _add(_add(neck, up, -2.5), front, -3.0),
            "hip_near": _add(pelvis, front, 2.0), "hip_far": _add(pelvis, front, -2.5),
        }
        for side in ("near", "far"):
            knee, ankle = _two_bone(body["hip_" + side], getattr(pose, "ankle_" + side), THIGH, SHIN,
                                    getattr(pose, "knee_" + side))
            angle = getattr(pose, "foot_" + side)
            body["knee_" + side], body["ankle_" + side] = knee, ankle
            body["toe_" + side] = _add(ankle, (math.cos(math.radians(angle)), math.sin(math.radians(angle))), FOOT)
            elbow, hand = _two_bone(body["shoulder_" + side], getattr(pose, "hand_" + side), UPPER_ARM, FOREARM,
                                    getattr(pose, "elbow_" + side))
            body["elbow_" + side], body["hand_" + side] = elbow, hand
        self.up, self.front = up, front
        self.head_up = head_up
        # The whole body turns around the pelvis (falls, lying down).
        c, s = math.cos(math.radians(pose.rotation)), math.sin(math.radians(pose.rotation))
        self.turn = (c, s)
        self.points = {name: self._place(p, pelvis) for name, p in body.items()}

    def _place(self, p, pivot):
        c, s = self.turn
        x, y = p[0] - pivot[0], p[1] - pivot[1]
        return (ORIGIN[0] + pivot[0] + x * c - y * s, ORIGIN[1] + pivot[1] + x * s + y * c)

    def direction(self, v):
        c, s = self.turn
        return (v[0] * c - v[1] * s, v[0] * s + v[1] * c)

    def head_point(self, forward, down):
        """A point of the head, in head units: forward along the face, down
        towards the chin."""
        up = self.direction(self.head_up)
        front = (-up[1], up[0])
        return _add(_add(self.points["head"], front, forward), up, -down)

    def __getitem__(self, name):
        return self.points[name]


# The hair, forward and down from the centre of the head: spikes swept back
# and up, the face left open below the fringe.
HAIR_OUTLINE = [(6.5, -2.5), (8.5, -6.0), (5.0, -6.8), (5.5, -10.5), (1.5, -8.2), (-0.5, -13.0), (-3.0, -8.6),
                (-8.0, -11.0), (-7.0, -5.8), (-13.0, -5.5), (-8.2, -2.2), (-12.5, 2.0), (-7.2, 2.0), (-5.5, 5.0),
                (-3.2, 0.8), (-0.5, -2.8), (3.5, -3.6)]


def _arm(canvas, skeleton, side, darker):
    layer = canvas.begin_layer()
    shoulder, elbow, hand = skeleton["shoulder_" + side], skeleton["elbow_" + side], skeleton["hand_" + side]
    wrist = _add(elbow, (hand[0] - elbow[0], hand[1] - elbow[1]), 0.55)
    canvas.fill(Capsule(shoulder, elbow, 3.1, 2.7), SKIN, layer, darker)
    canvas.fill(Capsule(elbow, wrist, 2.7, 2.5), SKIN, layer, darker)
    canvas.fill(Capsule(wrist, hand, 2.6, 2.8), WRAPS, layer, darker)
    _fist(canvas, skeleton, side, layer, darker)


def _fist(canvas, skeleton, side, layer, darker):
    hand = skeleton["hand_" + side]
    canvas.fill(Capsule(hand, hand, 3.2), WRAPS, layer, darker)


def _boot(canvas, skeleton, side, layer, darker):
    ankle, toe = skeleton["ankle_" + side], skeleton["toe_" + side]
    heel = _add(ankle, _unit((ankle[0] - toe[0], ankle[1] - toe[1])), 1.0)
    canvas.fill(Capsule(heel, toe, 2.9, 2.3), BOOTS, layer, darker)


def _leg(canvas, skeleton, side, darker):
    layer = canvas.begin_layer()
    hip, knee, ankle = (skeleton[n + "_" + side] for n in ("hip", "knee", "ankle"))
    canvas.fill(Capsule(hip, knee, 5.0, 4.2), PANTS, layer, darker)
    canvas.fill(Capsule(knee, ankle, 4.2, 3.6), PANTS, layer, darker)
    _boot(canvas, skeleton, side, layer, darker)


def _body(canvas, skeleton):
    layer = canvas.begin_layer()
    pelvis, chest, neck = skeleton["pelvis"], skeleton["chest"], skeleton["neck"]
    up, front = skeleton.direction(skeleton.up), skeleton.direction(skeleton.front)
    canvas.fill(Capsule(skeleton["hip_far"], skeleton["hip_near"], 6.0), PANTS, layer)
    canvas.fill(Capsule(pelvis, chest, 6.4, 7.4), VEST, layer)
    canvas.fill(Capsule(chest, _add(neck, up, -1.0), 7.6, 5.6), VEST, layer)
    canvas.fill(Capsule(neck, _add(neck, up, 4.0), 2.7), SKIN, layer)
    waist = _add(pelvis, up, 2.5)
    canvas.fill(Capsule(_add(waist, front, -6.6), _add(waist, front, 6.6), 1.9), SASH, layer)
    knot = _add(waist, front, -5.5)
    canvas.fill(Capsule(knot, _add(_add(knot, front, -4.0), up, -9.0), 1.7, 1.0), SASH, layer)


def _head(canvas, skeleton):
    layer = canvas.begin_layer()
    head = skeleton["head"]
    canvas.fill(Capsule(head, head, HEAD_RADIUS), SKIN, layer)
    canvas.fill(Capsule(skeleton.head_point(-1.5, 0.8), skeleton.head_point(-1.5, 0.8), 1.8), SKIN, layer, 1)
    hair = [skeleton.head_point(f, d) for f, d in HAIR_OUTLINE]
    canvas.fill(Polygon(hair, skeleton.head_point(-1.0, -4.0), 12.0), HAIR, layer)
    band = (skeleton.head_point(-7.2, -3.6), skeleton.head_point(7.2, -3.6))
    canvas.fill(Capsule(band[0], band[1], 1.3), WRAPS, layer)
    canvas.fill(Capsule(band[0], skeleton.head_point(-14.0, -0.5), 1.1, 0.8), WRAPS, layer, 1)
    canvas.fill(Capsule(band[0], skeleton.head_point(-12.5, 3.5), 1.0, 0.7), WRAPS, layer, 1)


def _face(canvas, skeleton):
    for forward, down, colour in ((4.6, -0.4, IRIS), (4.6, 0.6, IRIS), (3.6, 0.6, EYE_WHITE),
                                  (3.2, -1.8, OUTLINE), (4.3, -1.9, OUTLINE), (5.4, -2.2, OUTLINE),
                                  (5.2, 3.6, MOUTH)):
        x, y = skeleton.head_point(forward, down)
        canvas.put(x, y, colour)


def _flame(canvas, skeleton, limb):
    """Fire wrapped around the striking fist or foot and trailing behind it;
    the fist or foot itself stays in front."""
    layer = canvas.begin_layer()
    if limb == "arm":
        tip, base = skeleton["hand_near"], skeleton["elbow_near"]
    else:
        tip, base = skeleton["toe_near"], skeleton["knee_near"]
    back = _unit((base[0] - tip[0], base[1] - tip[1]))
    side = (-back[1], back[0])
    for offset, length, radius, level in ((0.0, 18.0, 6.0, 2), (2.0, 13.0, 4.2, 1), (-2.0, 11.0, 3.4, 1),
                                          (0.0, 7.0, 2.4, 0)):
        start = _add(_add(tip, side, offset), back, -2.0)
        canvas.fill(Capsule(start, _add(start, back, length), radius, 0.6), FIRE, layer, flat=level)
    (_fist if limb == "arm" else _boot)(canvas, skeleton, "near", canvas.begin_layer(), 0)


class Drawing:
    """A drawn pose: the cropped picture, the engine's axis in its pixels (the
    ground under the feet, or under the back when it lies down), and the
    joints measured from that axis, in pixels."""

    def __init__(self, picture, axis, joints):
        self.picture, self.axis, self.joints = picture, axis, joints

    def at(self, name):
        """The pixel of a joint in the picture."""
        x, y = self.joints[name]
        return (self.axis[0] + x, self.axis[1] + y)


def draw(pose):
    """The pose drawn as a Drawing."""
    skeleton = Skeleton(pose)
    canvas = Canvas(CANVAS_WIDTH, CANVAS_HEIGHT, OUTLINE)
    _arm(canvas, skeleton, "far", 1)
    _leg(canvas, skeleton, "far", 1)
    _body(canvas, skeleton)
    _leg(canvas, skeleton, "near", 0)
    _head(canvas, skeleton)
    _arm(canvas, skeleton, "near", 0)
    if pose.flame:
        _flame(canvas, skeleton, pose.flame)
    canvas.finish_layers()
    _face(canvas, skeleton)
    canvas.outline_silhouette()
    left, top, picture = canvas.crop()
    if pose.on_ground:
        # The back rests on the floor; the hair may splay out below it.
        back = max(skeleton["pelvis"][1], skeleton["chest"][1]) + 6.5
        ground = (skeleton["pelvis"][0], back)
    else:
        ground = skeleton["origin"]
    axis = (int(math.floor(ground[0])) - left, int(math.floor(ground[1])) - top)
    joints = {name: (int(math.floor(p[0])) - left - axis[0], int(math.floor(p[1])) - top - axis[1])
              for name, p in skeleton.points.items()}
    return Drawing(picture, axis, joints)
