[LOS]
[LOS]
[ENDE_LOS]
[LOS]
a

b:
[/]
[ENDE_LOS]
