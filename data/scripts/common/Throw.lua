-- makeThrow(options) writes the states of a throw in the engine's usual
-- pattern, for the states editor's throw creator:
--   1. the attempt: a HitDef that only connects at close range on a standing
--      or crouching opponent who can be thrown, with p1stateno and p2stateno;
--   2. the thrower's hold: TargetBind keeps the opponent at the hand while
--      the throwing animation plays, then TargetLifeAdd and TargetState let go;
--   3. the opponent's custom states (P2 plays the thrower's animations with
--      ChangeAnim2): held, then flying off under gravity, and back to its own
--      states (SelfState) when it lands.
-- makeThrowCommand(options) writes what starts it in the CMD.
-- Every key of `options` is optional; the values below are the defaults.

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
    Facing = 1,          -- 1 throws forward, -1 throws behind
    Command = "throw",   -- the command that starts the throw
    Keys = "",           -- its keys, for a command the CMD doesn't have yet ("/F, y": hold forward, press y)
    Reach = 5,           -- how close the opponent's body must be, in the thrower's units
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
    -- A section: its header line, then "key = value" for each pair, then a blank line.
    local function section(header, pairs)
        lines[#lines + 1] = header
        for i = 1, #pairs, 2 do
            lines[#lines + 1] = pairs[i] .. " = " .. pairs[i + 1]
        end
        lines[#lines + 1] = ""
    end
    local function controller(state, name, kind, pairs)
        section(string.format("[State %d, %s]", state, name), {"type", kind, table.unpack(pairs)})
    end
    local function statedef(comment, state, kind, movetype, physics, extra)
        lines[#lines + 1] = "; " .. comment
        section(string.format("[Statedef %d]", state),
                {"type", kind, "movetype", movetype, "physics", physics, table.unpack(extra)})
    end
    local backToStand = {"trigger1", "AnimTime = 0", "value", "0", "ctrl", "1"}

    statedef("Throw attempt", attempt, "S", "A", "S",
             {"juggle", "0", "velset", "0, 0", "ctrl", "0", "anim", number(o.P1AnimStart),
              "sprpriority", number(o.SprPriority)})
    controller(attempt, "HitDef", "HitDef",
               {"trigger1", "AnimElem = 2", "attr", "S, NT", "hitflag", "M-", "priority", "1, Miss",
                "sparkno", "-1", "p1sprpriority", number(o.SprPriority), "p1facing", number(o.Facing),
                "p2facing", "1", "p1stateno", number(hold), "p2stateno", number(held), "guard.dist", "0",
                "fall", "1"})
    controller(attempt, "Miss", "ChangeState", backToStand)

    statedef("Throw: holding the opponent", hold, "S", "A", "N",
             {"velset", "0, 0", "anim", number(o.P1Anim), "poweradd", number(o.PowerAdd)})
    controller(hold, "Bind", "TargetBind",
               {"trigger1", "Time < " .. number(o.BindCount), "pos", number(o.BindX) .. ", " .. number(o.BindY)})
    controller(hold, "Damage", "TargetLifeAdd", {"trigger1", "Time = " .. number(o.BindCount), "value", "-" .. number(o.Damage)})
    controller(hold, "Release", "TargetState", {"trigger1", "Time = " .. number(o.BindCount), "value", number(flying)})
    controller(hold, "End", "ChangeState", backToStand)

    statedef("Thrown: the opponent held (a custom state)", held, "A", "H", "N", {"velset", "0, 0"})
    controller(held, "Anim", "ChangeAnim2", {"trigger1", "Time = 0", "value", number(o.P2Anim)})

    statedef("Thrown: let go, flying until the ground", flying, "A", "H", "N", {})
    controller(flying, "Anim", "ChangeAnim2", {"trigger1", "Time = 0", "value", number(o.P2AirAnim)})
    controller(flying, "Launch", "VelSet", {"trigger1", "Time = 0", "x", number(o.XVelocity), "y", number(o.YVelocity)})
    controller(flying, "Gravity", "VelAdd", {"trigger1", "Time > 0", "y", number(o.Gravity)})
    controller(flying, "Landed", "SelfState", {"trigger1", "Vel Y > 0", "trigger1", "Pos Y >= 0", "value", "5100"})
    return table.concat(lines, "\n")
end

-- The CMD's part of the throw, as a table: `command`, the [Command] group
-- when options.Keys gives keys (nil otherwise: the command exists), and
-- `entry`, the [State -1] controller that starts the attempt when the command
-- is given close to an opponent standing or crouching and not already hit.
function makeThrowCommand(options)
    local o = {}
    for key in pairs(defaults) do
        o[key] = option(options, key)
    end
    local result = {}
    if o.Keys ~= "" then
        result.command = table.concat({"[Command]", string.format("name = \"%s\"", o.Command),
                                       "command = " .. o.Keys, "time = 15", ""}, "\n")
    end
    result.entry = table.concat({
        string.format("[State -1, Throw %s]", o.Command),
        "type = ChangeState",
        "value = " .. number(o.StateNo),
        string.format("triggerall = command = \"%s\"", o.Command),
        "triggerall = statetype = S",
        "triggerall = ctrl",
        "trigger1 = p2bodydist X < " .. number(o.Reach),
        "trigger1 = (p2statetype = S) || (p2statetype = C)",
        "trigger1 = p2movetype != H",
        ""}, "\n")
    return result
end
