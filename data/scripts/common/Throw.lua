-- makeThrow(options) writes the states of a throw in the engine's usual
-- pattern, for the states editor's throw creator:
--   1. the attempt: a HitDef that only connects at close range on a standing
--      or crouching opponent who can be thrown, with p1stateno and p2stateno;
--   2. the thrower's hold: TargetBind keeps the opponent at the hand while
--      the throwing animation plays, then TargetLifeAdd and TargetState let go;
--   3. the opponent's custom states (P2 plays the thrower's animations with
--      ChangeAnim2): held, then flying off under gravity, and back to its own
--      states (SelfState) when it lands.
-- Every key of `options` is optional; the numbers below are the defaults.

local defaults = {
    StateNo = 800,       -- the attempt; the hold is StateNo + 10, P2's states StateNo + 20 and + 21
    P1AnimStart = 800,   -- the thrower's reach
    P1Anim = 810,        -- the thrower's throwing animation
    P2Anim = 820,        -- the opponent held (an animation of the thrower's AIR)
    P2AirAnim = 821,     -- the opponent flying off
    XVelocity = -4.5,    -- the opponent's speed when let go (negative is away from the thrower's back)
    YVelocity = -7,
    Gravity = 0.45,
    BindCount = 16,      -- ticks the opponent stays bound
    BindX = 28,          -- where the opponent is held, from the thrower's axis
    BindY = 0,
    SprPriority = 2,
    Damage = 70,
    PowerAdd = 40,
    Reach = 12,          -- guard.dist-free closeness: the attempt's own hit box does the rest
    Facing = 1,          -- 1 throws forward, -1 throws behind
}

local function option(options, key)
    local value = options and options[key]
    if value == nil or value == "" then
        return defaults[key]
    end
    return value
end

local function number(value)
    if type(value) == "number" and value == math.floor(value) then
        return string.format("%d", value)
    end
    return tostring(value)
end

function makeThrow(options)
    local o = {}
    for key in pairs(defaults) do
        o[key] = option(options, key)
    end
    local attempt, hold = o.StateNo, o.StateNo + 10
    local held, flying = o.StateNo + 20, o.StateNo + 21
    local lines = {}
    local function add(text, ...)
        lines[#lines + 1] = string.format(text, ...)
    end

    add("; Throw attempt")
    add("[Statedef %d]", attempt)
    add("type = S")
    add("movetype = A")
    add("physics = S")
    add("juggle = 0")
    add("velset = 0, 0")
    add("ctrl = 0")
    add("anim = %d", o.P1AnimStart)
    add("sprpriority = %d", o.SprPriority)
    add("")
    add("[State %d, HitDef]", attempt)
    add("type = HitDef")
    add("trigger1 = AnimElem = 2")
    add("attr = S, NT")
    add("hitflag = M-")
    add("priority = 1, Miss")
    add("sparkno = -1")
    add("p1sprpriority = %d", o.SprPriority)
    add("p1facing = %d", o.Facing)
    add("p2facing = 1")
    add("p1stateno = %d", hold)
    add("p2stateno = %d", held)
    add("guard.dist = 0")
    add("fall = 1")
    add("")
    add("[State %d, Miss]", attempt)
    add("type = ChangeState")
    add("trigger1 = AnimTime = 0")
    add("value = 0")
    add("ctrl = 1")
    add("")

    add("; Throw: holding the opponent")
    add("[Statedef %d]", hold)
    add("type = S")
    add("movetype = A")
    add("physics = N")
    add("velset = 0, 0")
    add("anim = %d", o.P1Anim)
    add("poweradd = %d", o.PowerAdd)
    add("")
    add("[State %d, Bind]", hold)
    add("type = TargetBind")
    add("trigger1 = Time < %d", o.BindCount)
    add("pos = %s, %s", number(o.BindX), number(o.BindY))
    add("")
    add("[State %d, Damage]", hold)
    add("type = TargetLifeAdd")
    add("trigger1 = Time = %d", o.BindCount)
    add("value = -%d", o.Damage)
    add("")
    add("[State %d, Release]", hold)
    add("type = TargetState")
    add("trigger1 = Time = %d", o.BindCount)
    add("value = %d", flying)
    add("")
    add("[State %d, End]", hold)
    add("type = ChangeState")
    add("trigger1 = AnimTime = 0")
    add("value = 0")
    add("ctrl = 1")
    add("")

    add("; Thrown: the opponent held (a custom state)")
    add("[Statedef %d]", held)
    add("type = A")
    add("movetype = H")
    add("physics = N")
    add("velset = 0, 0")
    add("")
    add("[State %d, Anim]", held)
    add("type = ChangeAnim2")
    add("trigger1 = Time = 0")
    add("value = %d", o.P2Anim)
    add("")
    add("; Thrown: let go, flying until the ground")
    add("[Statedef %d]", flying)
    add("type = A")
    add("movetype = H")
    add("physics = N")
    add("")
    add("[State %d, Anim]", flying)
    add("type = ChangeAnim2")
    add("trigger1 = Time = 0")
    add("value = %d", o.P2AirAnim)
    add("")
    add("[State %d, Launch]", flying)
    add("type = VelSet")
    add("trigger1 = Time = 0")
    add("x = %s", number(o.XVelocity))
    add("y = %s", number(o.YVelocity))
    add("")
    add("[State %d, Gravity]", flying)
    add("type = VelAdd")
    add("trigger1 = Time > 0")
    add("y = %s", number(o.Gravity))
    add("")
    add("[State %d, Landed]", flying)
    add("type = SelfState")
    add("trigger1 = Vel Y > 0")
    add("trigger1 = Pos Y >= 0")
    add("value = 5100")
    add("")
    return table.concat(lines, "\n")
end
