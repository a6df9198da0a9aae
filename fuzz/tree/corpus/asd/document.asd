VERSION 2.0
[PROJEKTDATEN]
a
b
c
d
X:D-12345/Town
1:2:3:4
[ENDE_PROJEKTDATEN]
[BEMERKUNGEN]
r1
r2
[ENDE_BEMERKUNGEN]
[ANSCHADR]
x
[ENDE_ANSCHADR]
[ANSCHTEXT]
y
[ENDE_ANSCHTEXT]
[LOS]
Name:Los 1
A:2.5:m:Rohr:10:lang|zwei:x:y
B:2.:::-3::
[T]
C:1.:a®:b:1::
[ENDE_T]
[ENDE_LOS]
