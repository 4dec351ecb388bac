; Ember - commands

[Remap]
x = x
y = y
z = z
a = a
b = b
c = c
s = s

[Defaults]
command.time = 15
command.buffer.time = 1

;-| Special moves |------------------------------------------------------------

[Command]
name = "flamepalm"
command = ~D, DF, F, x
time = 15

;-| Dashes |-------------------------------------------------------------------

[Command]
name = "FF"
command = F, F
time = 10

[Command]
name = "BB"
command = B, B
time = 10

;-| Single buttons |-----------------------------------------------------------

[Command]
name = "x"
command = x
time = 1

[Command]
name = "a"
command = a
time = 1

;-| Held directions: the engine walks, crouches and jumps by these |----------

[Command]
name = "holdfwd"
command = /$F
time = 1

[Command]
name = "holdback"
command = /$B
time = 1

[Command]
name = "holdup"
command = /$U
time = 1

[Command]
name = "holddown"
command = /$D
time = 1

; Don't remove the following line. It's required by the engine.
[Statedef -1]

[State -1, Flame palm]
type = ChangeState
value = 1000
triggerall = command = "flamepalm"
trigger1 = statetype = S
trigger1 = ctrl

[State -1, Run forwards]
type = ChangeState
value = 100
trigger1 = command = "FF"
trigger1 = statetype = S
trigger1 = ctrl

[State -1, Hop backwards]
type = ChangeState
value = 105
trigger1 = command = "BB"
trigger1 = statetype = S
trigger1 = ctrl

[State -1, Light punch]
type = ChangeState
value = 200
triggerall = command = "x"
trigger1 = statetype = S
trigger1 = ctrl

[State -1, Light kick]
type = ChangeState
value = 230
triggerall = command = "a"
trigger1 = statetype = S
trigger1 = ctrl

[State -1, Crouching light punch]
type = ChangeState
value = 400
triggerall = command = "x"
trigger1 = statetype = C
trigger1 = ctrl

[State -1, Jump kick]
type = ChangeState
value = 600
triggerall = command = "a"
trigger1 = statetype = A
trigger1 = ctrl
