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

;-| Hand-made moves |---------------------------------------------------------

[Command]
name = "fireburst"
command = ~D, DF, F, x
time = 15

;-| Single buttons |----------------------------------------------------------

[Command]
name = "x"
command = x
time = 1

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

[State -1, Light punch]
type = ChangeState
value = 200
triggerall = command = "x"
trigger1 = statetype = S
trigger1 = ctrl
