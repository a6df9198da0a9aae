VERSION 2.0
[PROJEKTDATEN]
2026-0417
Neubau Kindertagesstätte Lindenhof
Heizung, Lüftung, Sanitär
12.03.2026
Lindenhofstraße 14:D-72899/Oberkirnach
07199 555-140:07199 555-149:kita.lindenhof@oberkirnach.example:6 Gruppen, 124 Kinder
Stadt Oberkirnach
Hochbauamt, Frau Dr. Özlem Sünderhauf
Rathausplatz 1:D-72899/Oberkirnach
07199 555-0:07199 555-99:hochbau@oberkirnach.example:Zi. 214
Ingenieurbüro Brückner & Söhne
Dipl.-Ing. Jürgen Brückner
Am Mühlgraben 7:D-70987/Filsenau
07022 555-310:07022 555-311:post@brueckner-soehne.example:Planung TGA
Wärmewerk Haustechnik GmbH
Käthe Großmann
Gewerbestraße 22a:D-71977/Ödenwald
07055 555-800:07055 555-888:angebot@waermewerk.example:Ausführung
Architekten Weiß Jäger Partner
Anna Weiß
Schloßgasse 3:A-6999/Hörbrück
05574 555-20:05574 555-29:buero@wjp.example:Objektplanung
[ENDE_PROJEKTDATEN]
[BEMERKUNGEN]
Die Mengen sind aus der Ausführungsplanung, Stand 03/2026, ermittelt.
Bauabschnitt 1 (Krippe) muss bis zum 31.08.2026 betriebsbereit sein.
Alle Vorlauftemperaturen beziehen sich auf eine Außentemperatur von -12 °C.
Rückfragen bitte nur über das Ingenieurbüro.
[ENDE_BEMERKUNGEN]
[ANSCHADR]
Wärmewerk Haustechnik GmbH
z. Hd. Frau Käthe Großmann
Gewerbestraße 22a
D-71977 Ödenwald
[ENDE_ANSCHADR]
[ANSCHTEXT]
Sehr geehrte Frau Großmann,

anbei erhalten Sie die Positionen für Heizung, Lüftung und Sanitär
des Neubaus der Kindertagesstätte Lindenhof. Wir bitten um Ihr Angebot
bis zum 10.04.2026.

Mit freundlichen Grüßen
Jürgen Brückner
[ENDE_ANSCHTEXT]
[LOS]
Name:Los 1 Heizung
HZ-1101:1.:Stk:Luft/Wasser-Wärmepumpe 38 kW, Außenaufstellung:1010:Luft/Wasser-Wärmepumpe für Heizung und Kühlung, Monoblock|Heizleistung A2/W35® 38,4 kW, COP 3,9|Vorlauftemperatur max. 65 °C|Schallleistung max. 62 dB(A)|Kältemittel R290, hermetisch geschlossen:Wärmeerzeugung:Fabrikat Nordwind
HZ-1102:1.:Stk:Gas-Brennwertkessel 45 kW, Spitzenlast:1020:Wandhängender Brennwertkessel mit modulierendem Matrixbrenner|Nennwärmeleistung 8,2 bis 45 kW bei 50/30 °C|Normnutzungsgrad bis 109 % (Hi)|mit Neutralisation und Kondensathebepumpe:Wärmeerzeugung:Fabrikat Glimmer
HZ-1103:1.:Stk:Pufferspeicher 500 l, Dämmung 120 mm:1030:Stehender Pufferspeicher aus Stahl S235JR, 500 Liter|Betriebsüberdruck 3 bar, Betriebstemperatur 95 °C|mit Schichtleitblechen und 8 Anschlüssen G 1½|abnehmbare Vliesdämmung 120 mm, Folienmantel grau:Wärmeerzeugung
HZ-1104:2.:Stk:Pufferspeicher 800 l, Dämmung 120 mm:1040:Stehender Pufferspeicher aus Stahl S235JR, 800 Liter|Betriebsüberdruck 3 bar, Betriebstemperatur 95 °C|mit Schichtleitblechen und 8 Anschlüssen G 1½|abnehmbare Vliesdämmung 120 mm, Folienmantel grau:Wärmeerzeugung
HZ-1105:1.:Stk:Pufferspeicher 1000 l, Dämmung 120 mm:1050:Stehender Pufferspeicher aus Stahl S235JR, 1000 Liter|Betriebsüberdruck 3 bar, Betriebstemperatur 95 °C|mit Schichtleitblechen und 8 Anschlüssen G 1½|abnehmbare Vliesdämmung 120 mm, Folienmantel grau:Wärmeerzeugung
HZ-1106:1.:Stk:Pufferspeicher 1500 l, Dämmung 120 mm:1060:Stehender Pufferspeicher aus Stahl S235JR, 1500 Liter|Betriebsüberdruck 3 bar, Betriebstemperatur 95 °C|mit Schichtleitblechen und 8 Anschlüssen G 1½|abnehmbare Vliesdämmung 120 mm, Folienmantel grau:Wärmeerzeugung
HZ-1107:1.:Stk:Membran-Ausdehnungsgefäß 35 l:1070:Membran-Druckausdehnungsgefäß für geschlossene Heizungsanlagen|Nenninhalt 35 l, Vordruck 1,5 bar, zul. Betriebsüberdruck 6 bar|mit Kappenventil und Entleerung:Wärmeerzeugung
HZ-1108:2.:Stk:Membran-Ausdehnungsgefäß 50 l:1080:Membran-Druckausdehnungsgefäß für geschlossene Heizungsanlagen|Nenninhalt 50 l, Vordruck 1,5 bar, zul. Betriebsüberdruck 6 bar|mit Kappenventil und Entleerung:Wärmeerzeugung
HZ-1109:1.:Stk:Membran-Ausdehnungsgefäß 80 l:1090:Membran-Druckausdehnungsgefäß für geschlossene Heizungsanlagen|Nenninhalt 80 l, Vordruck 1,5 bar, zul. Betriebsüberdruck 6 bar|mit Kappenventil und Entleerung:Wärmeerzeugung
HZ-1110:2.:Stk:Membran-Ausdehnungsgefäß 140 l:1100:Membran-Druckausdehnungsgefäß für geschlossene Heizungsanlagen|Nenninhalt 140 l, Vordruck 1,5 bar, zul. Betriebsüberdruck 6 bar|mit Kappenventil und Entleerung:Wärmeerzeugung
HZ-1111:2.:Stk:Hocheffizienzpumpe DN 25, Förderhöhe 4 m:1110:Nassläufer-Umwälzpumpe, stufenlos geregelt|Nennweite DN 25, max. Förderhöhe 4 m|EEI max. 0,20, Schutzart IPX4D|einschließlich Wärmedämmschale und Verschraubungen:Wärmeerzeugung
HZ-1112:1.:Stk:Hocheffizienzpumpe DN 25, Förderhöhe 6 m:1120:Nassläufer-Umwälzpumpe, stufenlos geregelt|Nennweite DN 25, max. Förderhöhe 6 m|EEI max. 0,20, Schutzart IPX4D|einschließlich Wärmedämmschale und Verschraubungen:Wärmeerzeugung
HZ-1113:1.:Stk:Hocheffizienzpumpe DN 32, Förderhöhe 6 m:1130:Nassläufer-Umwälzpumpe, stufenlos geregelt|Nennweite DN 32, max. Förderhöhe 6 m|EEI max. 0,20, Schutzart IPX4D|einschließlich Wärmedämmschale und Verschraubungen:Wärmeerzeugung
HZ-1114:1.:Stk:Hocheffizienzpumpe DN 32, Förderhöhe 8 m:1140:Nassläufer-Umwälzpumpe, stufenlos geregelt|Nennweite DN 32, max. Förderhöhe 8 m|EEI max. 0,20, Schutzart IPX4D|einschließlich Wärmedämmschale und Verschraubungen:Wärmeerzeugung
HZ-1115:1.:Stk:Hocheffizienzpumpe DN 40, Förderhöhe 8 m:1150:Nassläufer-Umwälzpumpe, stufenlos geregelt|Nennweite DN 40, max. Förderhöhe 8 m|EEI max. 0,20, Schutzart IPX4D|einschließlich Wärmedämmschale und Verschraubungen:Wärmeerzeugung
HZ-1116:2.:Stk:Hocheffizienzpumpe DN 50, Förderhöhe 10 m:1160:Nassläufer-Umwälzpumpe, stufenlos geregelt|Nennweite DN 50, max. Förderhöhe 10 m|EEI max. 0,20, Schutzart IPX4D|einschließlich Wärmedämmschale und Verschraubungen:Wärmeerzeugung
HZ-1117:1.:Stk:Hydraulische Weiche 8 m³/h:1170:Hydraulische Weiche mit Schlamm- und Luftabscheider|Volumenstrom bis 8 m³/h, Anschlüsse DN 50|mit abnehmbarer Wärmedämmung:Wärmeerzeugung
HZ-1118:1.:psch:Inbetriebnahme und Einweisung Wärmeerzeugung:1180:Inbetriebnahme durch den Werkskundendienst|einschließlich Protokoll, Einregulierung und Einweisung des Bedienpersonals|Dauer® mindestens 4 Stunden:Wärmeerzeugung
HZ-1201:152.5:m:Stahlrohr DN 15, geschweißt:2010:Rohrleitung aus Gewinderohr, mittelschwere Reihe|Nennweite DN 15 (21,3 x 2,6 mm), schwarz, geschweißt verlegt|einschließlich Form- und Verbindungsstücken bis DN 25, Befestigung und Rostschutzanstrich:Rohrleitungen Stahl
HZ-1202:86.:m:Stahlrohr DN 20, geschweißt:2020:Rohrleitung aus Gewinderohr, mittelschwere Reihe|Nennweite DN 20 (26,9 x 2,6 mm), schwarz, geschweißt verlegt|einschließlich Form- und Verbindungsstücken bis DN 25, Befestigung und Rostschutzanstrich:Rohrleitungen Stahl
HZ-1203:27.:m:Stahlrohr DN 25, geschweißt:2030:Rohrleitung aus Gewinderohr, mittelschwere Reihe|Nennweite DN 25 (33,7 x 3,2 mm), schwarz, geschweißt verlegt|einschließlich Form- und Verbindungsstücken bis DN 25, Befestigung und Rostschutzanstrich:Rohrleitungen Stahl
HZ-1204:68.5:m:Stahlrohr DN 32, geschweißt:2040:Rohrleitung aus Gewinderohr, mittelschwere Reihe|Nennweite DN 32 (42,4 x 3,2 mm), schwarz, geschweißt verlegt|einschließlich Form- und Verbindungsstücken bis DN 25, Befestigung und Rostschutzanstrich:Rohrleitungen Stahl
HZ-1205:145.:m:Stahlrohr DN 40, geschweißt:2050:Rohrleitung aus Gewinderohr, mittelschwere Reihe|Nennweite DN 40 (48,3 x 3,2 mm), schwarz, geschweißt verlegt|einschließlich Form- und Verbindungsstücken bis DN 25, Befestigung und Rostschutzanstrich:Rohrleitungen Stahl
HZ-1206:149.:m:Stahlrohr DN 50, geschweißt:2060:Rohrleitung aus Gewinderohr, mittelschwere Reihe|Nennweite DN 50 (60,3 x 3,6 mm), schwarz, geschweißt verlegt|einschließlich Form- und Verbindungsstücken bis DN 25, Befestigung und Rostschutzanstrich:Rohrleitungen Stahl
HZ-1207:104.:m:Stahlrohr DN 65, geschweißt:2070:Rohrleitung aus Gewinderohr, mittelschwere Reihe|Nennweite DN 65 (76,1 x 3,6 mm), schwarz, geschweißt verlegt|einschließlich Form- und Verbindungsstücken bis DN 25, Befestigung und Rostschutzanstrich:Rohrleitungen Stahl
HZ-1208:82.5:m:Stahlrohr DN 80, geschweißt:2080:Rohrleitung aus Gewinderohr, mittelschwere Reihe|Nennweite DN 80 (88,9 x 4,0 mm), schwarz, geschweißt verlegt|einschließlich Form- und Verbindungsstücken bis DN 25, Befestigung und Rostschutzanstrich:Rohrleitungen Stahl
HZ-1209:15.:Stk:Rohrbogen 90° DN 15:2090:Einschweißbogen 90°, Bauart 3, DN 15 (21,3 x 2,6 mm)|einschließlich Schweißnähten:Rohrleitungen Stahl
HZ-1210:10.:Stk:Rohrbogen 90° DN 20:2100:Einschweißbogen 90°, Bauart 3, DN 20 (26,9 x 2,6 mm)|einschließlich Schweißnähten:Rohrleitungen Stahl
HZ-1211:20.:Stk:Rohrbogen 90° DN 25:2110:Einschweißbogen 90°, Bauart 3, DN 25 (33,7 x 3,2 mm)|einschließlich Schweißnähten:Rohrleitungen Stahl
HZ-1212:17.:Stk:Rohrbogen 90° DN 32:2120:Einschweißbogen 90°, Bauart 3, DN 32 (42,4 x 3,2 mm)|einschließlich Schweißnähten:Rohrleitungen Stahl
HZ-1213:5.:Stk:Rohrbogen 90° DN 40:2130:Einschweißbogen 90°, Bauart 3, DN 40 (48,3 x 3,2 mm)|einschließlich Schweißnähten:Rohrleitungen Stahl
HZ-1214:45.:Stk:Rohrbogen 90° DN 50:2140:Einschweißbogen 90°, Bauart 3, DN 50 (60,3 x 3,6 mm)|einschließlich Schweißnähten:Rohrleitungen Stahl
HZ-1215:20.:Stk:Rohrbogen 90° DN 65:2150:Einschweißbogen 90°, Bauart 3, DN 65 (76,1 x 3,6 mm)|einschließlich Schweißnähten:Rohrleitungen Stahl
HZ-1216:21.:Stk:Rohrbogen 90° DN 80:2160:Einschweißbogen 90°, Bauart 3, DN 80 (88,9 x 4,0 mm)|einschließlich Schweißnähten:Rohrleitungen Stahl
HZ-1217:8.:Stk:T-Stück DN 25:2170:Einschweiß-T-Stück DN 25 (33,7 x 3,2 mm), gleich oder reduziert|einschließlich Schweißnähten:Rohrleitungen Stahl
HZ-1218:7.:Stk:T-Stück DN 32:2180:Einschweiß-T-Stück DN 32 (42,4 x 3,2 mm), gleich oder reduziert|einschließlich Schweißnähten:Rohrleitungen Stahl
HZ-1219:11.:Stk:T-Stück DN 40:2190:Einschweiß-T-Stück DN 40 (48,3 x 3,2 mm), gleich oder reduziert|einschließlich Schweißnähten:Rohrleitungen Stahl
HZ-1220:11.:Stk:T-Stück DN 50:2200:Einschweiß-T-Stück DN 50 (60,3 x 3,6 mm), gleich oder reduziert|einschließlich Schweißnähten:Rohrleitungen Stahl
HZ-1221:13.:Stk:T-Stück DN 65:2210:Einschweiß-T-Stück DN 65 (76,1 x 3,6 mm), gleich oder reduziert|einschließlich Schweißnähten:Rohrleitungen Stahl
HZ-1222:4.:Stk:T-Stück DN 80:2220:Einschweiß-T-Stück DN 80 (88,9 x 4,0 mm), gleich oder reduziert|einschließlich Schweißnähten:Rohrleitungen Stahl
HZ-1223:98.:m:Rohrdämmung DN 15, 100 %, Mineralwolle:2230:Wärmedämmung von Rohrleitungen in Schächten und Technikräumen|Mineralwolleschale WLG 035, alukaschiert, Dämmdicke 100 % nach GEG, Rohr DN 15|Stöße verklebt, Bögen und T-Stücke werden übermessen:Rohrleitungen Stahl
HZ-1224:111.:m:Rohrdämmung DN 20, 100 %, Mineralwolle:2240:Wärmedämmung von Rohrleitungen in Schächten und Technikräumen|Mineralwolleschale WLG 035, alukaschiert, Dämmdicke 100 % nach GEG, Rohr DN 20|Stöße verklebt, Bögen und T-Stücke werden übermessen:Rohrleitungen Stahl
HZ-1225:141.5:m:Rohrdämmung DN 25, 100 %, Mineralwolle:2250:Wärmedämmung von Rohrleitungen in Schächten und Technikräumen|Mineralwolleschale WLG 035, alukaschiert, Dämmdicke 100 % nach GEG, Rohr DN 25|Stöße verklebt, Bögen und T-Stücke werden übermessen:Rohrleitungen Stahl
HZ-1226:75.5:m:Rohrdämmung DN 32, 100 %, Mineralwolle:2260:Wärmedämmung von Rohrleitungen in Schächten und Technikräumen|Mineralwolleschale WLG 035, alukaschiert, Dämmdicke 100 % nach GEG, Rohr DN 32|Stöße verklebt, Bögen und T-Stücke werden übermessen:Rohrleitungen Stahl
HZ-1227:57.5:m:Rohrdämmung DN 40, 100 %, Mineralwolle:2270:Wärmedämmung von Rohrleitungen in Schächten und Technikräumen|Mineralwolleschale WLG 035, alukaschiert, Dämmdicke 100 % nach GEG, Rohr DN 40|Stöße verklebt, Bögen und T-Stücke werden übermessen:Rohrleitungen Stahl
HZ-1228:75.:m:Rohrdämmung DN 50, 100 %, Mineralwolle:2280:Wärmedämmung von Rohrleitungen in Schächten und Technikräumen|Mineralwolleschale WLG 035, alukaschiert, Dämmdicke 100 % nach GEG, Rohr DN 50|Stöße verklebt, Bögen und T-Stücke werden übermessen:Rohrleitungen Stahl
HZ-1229:133.:m:Rohrdämmung DN 65, 100 %, Mineralwolle:2290:Wärmedämmung von Rohrleitungen in Schächten und Technikräumen|Mineralwolleschale WLG 035, alukaschiert, Dämmdicke 100 % nach GEG, Rohr DN 65|Stöße verklebt, Bögen und T-Stücke werden übermessen:Rohrleitungen Stahl
HZ-1230:83.5:m:Rohrdämmung DN 80, 100 %, Mineralwolle:2300:Wärmedämmung von Rohrleitungen in Schächten und Technikräumen|Mineralwolleschale WLG 035, alukaschiert, Dämmdicke 100 % nach GEG, Rohr DN 80|Stöße verklebt, Bögen und T-Stücke werden übermessen:Rohrleitungen Stahl
HZ-1301:3.:Stk:Kugelhahn DN 15, PN 16:3010:Kugelhahn aus Messing, voller Durchgang, DN 15, PN 16|mit verlängerter Spindel für Wärmedämmung, Medium Heizungswasser bis 110 °C:Armaturen Heizung
HZ-1302:10.:Stk:Kugelhahn DN 20, PN 16:3020:Kugelhahn aus Messing, voller Durchgang, DN 20, PN 16|mit verlängerter Spindel für Wärmedämmung, Medium Heizungswasser bis 110 °C:Armaturen Heizung
HZ-1303:6.:Stk:Kugelhahn DN 25, PN 16:3030:Kugelhahn aus Messing, voller Durchgang, DN 25, PN 16|mit verlängerter Spindel für Wärmedämmung, Medium Heizungswasser bis 110 °C:Armaturen Heizung
HZ-1304:2.:Stk:Kugelhahn DN 32, PN 16:3040:Kugelhahn aus Messing, voller Durchgang, DN 32, PN 16|mit verlängerter Spindel für Wärmedämmung, Medium Heizungswasser bis 110 °C:Armaturen Heizung
HZ-1305:6.:Stk:Kugelhahn DN 40, PN 16:3050:Kugelhahn aus Messing, voller Durchgang, DN 40, PN 16|mit verlängerter Spindel für Wärmedämmung, Medium Heizungswasser bis 110 °C:Armaturen Heizung
HZ-1306:11.:Stk:Kugelhahn DN 50, PN 16:3060:Kugelhahn aus Messing, voller Durchgang, DN 50, PN 16|mit verlängerter Spindel für Wärmedämmung, Medium Heizungswasser bis 110 °C:Armaturen Heizung
HZ-1307:13.:Stk:Kugelhahn DN 65, PN 16:3070:Kugelhahn aus Messing, voller Durchgang, DN 65, PN 16|mit verlängerter Spindel für Wärmedämmung, Medium Heizungswasser bis 110 °C:Armaturen Heizung
HZ-1308:6.:Stk:Kugelhahn DN 80, PN 16:3080:Kugelhahn aus Messing, voller Durchgang, DN 80, PN 16|mit verlängerter Spindel für Wärmedämmung, Medium Heizungswasser bis 110 °C:Armaturen Heizung
HZ-1309:9.:Stk:Strangregulierventil DN 15:3090:Strangregulier- und Messventil in Schrägsitzform, DN 15, PN 25|mit Voreinstellung, Messstutzen und Entleerung|einschließlich Einregulierung und Protokoll:Armaturen Heizung
HZ-1310:4.:Stk:Strangregulierventil DN 20:3100:Strangregulier- und Messventil in Schrägsitzform, DN 20, PN 25|mit Voreinstellung, Messstutzen und Entleerung|einschließlich Einregulierung und Protokoll:Armaturen Heizung
HZ-1311:7.:Stk:Strangregulierventil DN 25:3110:Strangregulier- und Messventil in Schrägsitzform, DN 25, PN 25|mit Voreinstellung, Messstutzen und Entleerung|einschließlich Einregulierung und Protokoll:Armaturen Heizung
HZ-1312:7.:Stk:Strangregulierventil DN 32:3120:Strangregulier- und Messventil in Schrägsitzform, DN 32, PN 25|mit Voreinstellung, Messstutzen und Entleerung|einschließlich Einregulierung und Protokoll:Armaturen Heizung
HZ-1313:5.:Stk:Strangregulierventil DN 40:3130:Strangregulier- und Messventil in Schrägsitzform, DN 40, PN 25|mit Voreinstellung, Messstutzen und Entleerung|einschließlich Einregulierung und Protokoll:Armaturen Heizung
HZ-1314:7.:Stk:Strangregulierventil DN 50:3140:Strangregulier- und Messventil in Schrägsitzform, DN 50, PN 25|mit Voreinstellung, Messstutzen und Entleerung|einschließlich Einregulierung und Protokoll:Armaturen Heizung
HZ-1315:2.:Stk:Schmutzfänger DN 25:3150:Schmutzfänger aus Rotguss, DN 25, PN 16, Maschenweite 0,5 mm, mit Ablassschraube:Armaturen Heizung
HZ-1316:1.:Stk:Schmutzfänger DN 32:3160:Schmutzfänger aus Rotguss, DN 32, PN 16, Maschenweite 0,5 mm, mit Ablassschraube:Armaturen Heizung
HZ-1317:1.:Stk:Schmutzfänger DN 40:3170:Schmutzfänger aus Rotguss, DN 40, PN 16, Maschenweite 0,5 mm, mit Ablassschraube:Armaturen Heizung
HZ-1318:2.:Stk:Schmutzfänger DN 50:3180:Schmutzfänger aus Rotguss, DN 50, PN 16, Maschenweite 0,5 mm, mit Ablassschraube:Armaturen Heizung
HZ-1319:2.:Stk:Schmutzfänger DN 65:3190:Schmutzfänger aus Rotguss, DN 65, PN 16, Maschenweite 0,5 mm, mit Ablassschraube:Armaturen Heizung
HZ-1320:1.:Stk:Rückschlagklappe DN 25:3200:Rückschlagklappe in Zwischenflanschbauweise, DN 25, PN 16, weich dichtend:Armaturen Heizung
HZ-1321:1.:Stk:Rückschlagklappe DN 32:3210:Rückschlagklappe in Zwischenflanschbauweise, DN 32, PN 16, weich dichtend:Armaturen Heizung
HZ-1322:1.:Stk:Rückschlagklappe DN 40:3220:Rückschlagklappe in Zwischenflanschbauweise, DN 40, PN 16, weich dichtend:Armaturen Heizung
HZ-1323:2.:Stk:Rückschlagklappe DN 50:3230:Rückschlagklappe in Zwischenflanschbauweise, DN 50, PN 16, weich dichtend:Armaturen Heizung
HZ-1324:3.:Stk:Rückschlagklappe DN 65:3240:Rückschlagklappe in Zwischenflanschbauweise, DN 65, PN 16, weich dichtend:Armaturen Heizung
HZ-1325:14.:Stk:Bimetall-Zeigerthermometer 0-120 °C:3250:Zeigerthermometer Durchmesser 80 mm, Tauchhülse 63 mm, Klasse 1:Armaturen Heizung
HZ-1326:8.:Stk:Manometer 0-4 bar:3260:Rohrfedermanometer Durchmesser 80 mm, mit Absperrhahn und roter Marke:Armaturen Heizung
HZ-1327:2.:Stk:Sicherheitsventil 3 bar, DN 25:3270:Membran-Sicherheitsventil für Heizungsanlagen, Ansprechdruck 3 bar, bauteilgeprüft:Armaturen Heizung
HZ-1328:2.:Stk:Wärmemengenzähler Ultraschall qp 6,0:3280:Ultraschall-Wärmezähler, Nenndurchfluss qp 6,0 m³/h, DN 25|mit M-Bus-Schnittstelle, Temperaturfühlerpaar und Kugelhähnen|geeicht, Batterie 12 Jahre:Armaturen Heizung
HZ-1401:1240.:m²:Fußbodenheizung Tackersystem, VA 150:4010:Warmwasser-Fußbodenheizung, Verlegeabstand 150 mm|Verbundrohr 16 x 2,0 mm, sauerstoffdicht|auf Wärme- und Trittschalldämmung 35-3, einschließlich Randdämmstreifen:Fußbodenheizung
HZ-1402:310.5:m²:Fußbodenheizung Tackersystem, VA 100:4020:wie vor, jedoch Verlegeabstand 100 mm (Randzonen, Sanitärräume):Fußbodenheizung
HZ-1403:2.:Stk:Heizkreisverteiler 4 Kreise, Edelstahl:4030:Heizkreisverteiler aus Edelstahl mit 4 Heizkreisen|Durchflussanzeiger 0,5-5 l/min, Thermostatventile, Füll- und Entleerhähne|einschließlich Kugelhahnset und Halterungen:Fußbodenheizung
HZ-1404:2.:Stk:Heizkreisverteiler 5 Kreise, Edelstahl:4040:Heizkreisverteiler aus Edelstahl mit 5 Heizkreisen|Durchflussanzeiger 0,5-5 l/min, Thermostatventile, Füll- und Entleerhähne|einschließlich Kugelhahnset und Halterungen:Fußbodenheizung
HZ-1405:2.:Stk:Heizkreisverteiler 6 Kreise, Edelstahl:4050:Heizkreisverteiler aus Edelstahl mit 6 Heizkreisen|Durchflussanzeiger 0,5-5 l/min, Thermostatventile, Füll- und Entleerhähne|einschließlich Kugelhahnset und Halterungen:Fußbodenheizung
HZ-1406:1.:Stk:Heizkreisverteiler 7 Kreise, Edelstahl:4060:Heizkreisverteiler aus Edelstahl mit 7 Heizkreisen|Durchflussanzeiger 0,5-5 l/min, Thermostatventile, Füll- und Entleerhähne|einschließlich Kugelhahnset und Halterungen:Fußbodenheizung
HZ-1407:1.:Stk:Heizkreisverteiler 8 Kreise, Edelstahl:4070:Heizkreisverteiler aus Edelstahl mit 8 Heizkreisen|Durchflussanzeiger 0,5-5 l/min, Thermostatventile, Füll- und Entleerhähne|einschließlich Kugelhahnset und Halterungen:Fußbodenheizung
HZ-1408:1.:Stk:Heizkreisverteiler 9 Kreise, Edelstahl:4080:Heizkreisverteiler aus Edelstahl mit 9 Heizkreisen|Durchflussanzeiger 0,5-5 l/min, Thermostatventile, Füll- und Entleerhähne|einschließlich Kugelhahnset und Halterungen:Fußbodenheizung
HZ-1409:2.:Stk:Heizkreisverteiler 10 Kreise, Edelstahl:4090:Heizkreisverteiler aus Edelstahl mit 10 Heizkreisen|Durchflussanzeiger 0,5-5 l/min, Thermostatventile, Füll- und Entleerhähne|einschließlich Kugelhahnset und Halterungen:Fußbodenheizung
HZ-1410:1.:Stk:Heizkreisverteiler 11 Kreise, Edelstahl:4100:Heizkreisverteiler aus Edelstahl mit 11 Heizkreisen|Durchflussanzeiger 0,5-5 l/min, Thermostatventile, Füll- und Entleerhähne|einschließlich Kugelhahnset und Halterungen:Fußbodenheizung
HZ-1411:2.:Stk:Heizkreisverteiler 12 Kreise, Edelstahl:4110:Heizkreisverteiler aus Edelstahl mit 12 Heizkreisen|Durchflussanzeiger 0,5-5 l/min, Thermostatventile, Füll- und Entleerhähne|einschließlich Kugelhahnset und Halterungen:Fußbodenheizung
HZ-1412:2.:Stk:Verteilerschrank Unterputz 550 mm:4120:Verteilerschrank aus verzinktem Stahlblech, Breite 550 mm, Tiefe 110-150 mm|Blendrahmen und Tür weiß beschichtet, RAL 9016:Fußbodenheizung
HZ-1413:1.:Stk:Verteilerschrank Unterputz 700 mm:4130:Verteilerschrank aus verzinktem Stahlblech, Breite 700 mm, Tiefe 110-150 mm|Blendrahmen und Tür weiß beschichtet, RAL 9016:Fußbodenheizung
HZ-1414:2.:Stk:Verteilerschrank Unterputz 850 mm:4140:Verteilerschrank aus verzinktem Stahlblech, Breite 850 mm, Tiefe 110-150 mm|Blendrahmen und Tür weiß beschichtet, RAL 9016:Fußbodenheizung
HZ-1415:2.:Stk:Verteilerschrank Unterputz 1000 mm:4150:Verteilerschrank aus verzinktem Stahlblech, Breite 1000 mm, Tiefe 110-150 mm|Blendrahmen und Tür weiß beschichtet, RAL 9016:Fußbodenheizung
HZ-1416:3.:Stk:Verteilerschrank Unterputz 1150 mm:4160:Verteilerschrank aus verzinktem Stahlblech, Breite 1150 mm, Tiefe 110-150 mm|Blendrahmen und Tür weiß beschichtet, RAL 9016:Fußbodenheizung
HZ-1417:38.:Stk:Raumtemperaturregler Unterputz, 24 V:4170:Elektronischer Raumtemperaturregler für Heizen und Kühlen|mit Sollwertbegrenzung (Kinderbereich), Busanbindung:Fußbodenheizung
HZ-1418:74.:Stk:Thermoelektrischer Stellantrieb 24 V:4180:Stellantrieb stromlos geschlossen, 24 V, Hub 3,5 mm, Schutzart IP54:Fußbodenheizung
HZ-1501:5.:Stk:Plattenheizkörper Typ 11, 500 x 600 mm:5010:Ventil-Kompaktheizkörper Typ 11, Bauhöhe 500 mm, Baulänge 600 mm|profilierte Front, weiß RAL 9016, Kanten gerundet (kindersicher)|einschließlich Konsolen, Entlüftung, Blindstopfen:Heizkörper
HZ-1502:3.:Stk:Plattenheizkörper Typ 11, 500 x 800 mm:5020:Ventil-Kompaktheizkörper Typ 11, Bauhöhe 500 mm, Baulänge 800 mm|profilierte Front, weiß RAL 9016, Kanten gerundet (kindersicher)|einschließlich Konsolen, Entlüftung, Blindstopfen:Heizkörper
HZ-1503:6.:Stk:Plattenheizkörper Typ 11, 500 x 1000 mm:5030:Ventil-Kompaktheizkörper Typ 11, Bauhöhe 500 mm, Baulänge 1000 mm|profilierte Front, weiß RAL 9016, Kanten gerundet (kindersicher)|einschließlich Konsolen, Entlüftung, Blindstopfen:Heizkörper
HZ-1504:5.:Stk:Plattenheizkörper Typ 11, 500 x 1200 mm:5040:Ventil-Kompaktheizkörper Typ 11, Bauhöhe 500 mm, Baulänge 1200 mm|profilierte Front, weiß RAL 9016, Kanten gerundet (kindersicher)|einschließlich Konsolen, Entlüftung, Blindstopfen:Heizkörper
HZ-1505:2.:Stk:Plattenheizkörper Typ 11, 500 x 1600 mm:5050:Ventil-Kompaktheizkörper Typ 11, Bauhöhe 500 mm, Baulänge 1600 mm|profilierte Front, weiß RAL 9016, Kanten gerundet (kindersicher)|einschließlich Konsolen, Entlüftung, Blindstopfen:Heizkörper
HZ-1506:3.:Stk:Plattenheizkörper Typ 21, 500 x 600 mm:5060:Ventil-Kompaktheizkörper Typ 21, Bauhöhe 500 mm, Baulänge 600 mm|profilierte Front, weiß RAL 9016, Kanten gerundet (kindersicher)|einschließlich Konsolen, Entlüftung, Blindstopfen:Heizkörper
HZ-1507:1.:Stk:Plattenheizkörper Typ 21, 500 x 800 mm:5070:Ventil-Kompaktheizkörper Typ 21, Bauhöhe 500 mm, Baulänge 800 mm|profilierte Front, weiß RAL 9016, Kanten gerundet (kindersicher)|einschließlich Konsolen, Entlüftung, Blindstopfen:Heizkörper
HZ-1508:1.:Stk:Plattenheizkörper Typ 21, 500 x 1000 mm:5080:Ventil-Kompaktheizkörper Typ 21, Bauhöhe 500 mm, Baulänge 1000 mm|profilierte Front, weiß RAL 9016, Kanten gerundet (kindersicher)|einschließlich Konsolen, Entlüftung, Blindstopfen:Heizkörper
HZ-1509:6.:Stk:Plattenheizkörper Typ 21, 500 x 1200 mm:5090:Ventil-Kompaktheizkörper Typ 21, Bauhöhe 500 mm, Baulänge 1200 mm|profilierte Front, weiß RAL 9016, Kanten gerundet (kindersicher)|einschließlich Konsolen, Entlüftung, Blindstopfen:Heizkörper
HZ-1510:2.:Stk:Plattenheizkörper Typ 21, 500 x 1600 mm:5100:Ventil-Kompaktheizkörper Typ 21, Bauhöhe 500 mm, Baulänge 1600 mm|profilierte Front, weiß RAL 9016, Kanten gerundet (kindersicher)|einschließlich Konsolen, Entlüftung, Blindstopfen:Heizkörper
HZ-1511:3.:Stk:Plattenheizkörper Typ 22, 500 x 600 mm:5110:Ventil-Kompaktheizkörper Typ 22, Bauhöhe 500 mm, Baulänge 600 mm|profilierte Front, weiß RAL 9016, Kanten gerundet (kindersicher)|einschließlich Konsolen, Entlüftung, Blindstopfen:Heizkörper
HZ-1512:5.:Stk:Plattenheizkörper Typ 22, 500 x 800 mm:5120:Ventil-Kompaktheizkörper Typ 22, Bauhöhe 500 mm, Baulänge 800 mm|profilierte Front, weiß RAL 9016, Kanten gerundet (kindersicher)|einschließlich Konsolen, Entlüftung, Blindstopfen:Heizkörper
HZ-1513:5.:Stk:Plattenheizkörper Typ 22, 500 x 1000 mm:5130:Ventil-Kompaktheizkörper Typ 22, Bauhöhe 500 mm, Baulänge 1000 mm|profilierte Front, weiß RAL 9016, Kanten gerundet (kindersicher)|einschließlich Konsolen, Entlüftung, Blindstopfen:Heizkörper:Gruppenräume
HZ-1514:2.:Stk:Plattenheizkörper Typ 22, 500 x 1200 mm:5140:Ventil-Kompaktheizkörper Typ 22, Bauhöhe 500 mm, Baulänge 1200 mm|profilierte Front, weiß RAL 9016, Kanten gerundet (kindersicher)|einschließlich Konsolen, Entlüftung, Blindstopfen:Heizkörper
HZ-1515:1.:Stk:Plattenheizkörper Typ 22, 500 x 1600 mm:5150:Ventil-Kompaktheizkörper Typ 22, Bauhöhe 500 mm, Baulänge 1600 mm|profilierte Front, weiß RAL 9016, Kanten gerundet (kindersicher)|einschließlich Konsolen, Entlüftung, Blindstopfen:Heizkörper
HZ-1516:3.:Stk:Plattenheizkörper Typ 33, 500 x 600 mm:5160:Ventil-Kompaktheizkörper Typ 33, Bauhöhe 500 mm, Baulänge 600 mm|profilierte Front, weiß RAL 9016, Kanten gerundet (kindersicher)|einschließlich Konsolen, Entlüftung, Blindstopfen:Heizkörper
HZ-1517:2.:Stk:Plattenheizkörper Typ 33, 500 x 800 mm:5170:Ventil-Kompaktheizkörper Typ 33, Bauhöhe 500 mm, Baulänge 800 mm|profilierte Front, weiß RAL 9016, Kanten gerundet (kindersicher)|einschließlich Konsolen, Entlüftung, Blindstopfen:Heizkörper
HZ-1518:3.:Stk:Plattenheizkörper Typ 33, 500 x 1000 mm:5180:Ventil-Kompaktheizkörper Typ 33, Bauhöhe 500 mm, Baulänge 1000 mm|profilierte Front, weiß RAL 9016, Kanten gerundet (kindersicher)|einschließlich Konsolen, Entlüftung, Blindstopfen:Heizkörper
HZ-1519:4.:Stk:Plattenheizkörper Typ 33, 500 x 1200 mm:5190:Ventil-Kompaktheizkörper Typ 33, Bauhöhe 500 mm, Baulänge 1200 mm|profilierte Front, weiß RAL 9016, Kanten gerundet (kindersicher)|einschließlich Konsolen, Entlüftung, Blindstopfen:Heizkörper
HZ-1520:1.:Stk:Plattenheizkörper Typ 33, 500 x 1600 mm:5200:Ventil-Kompaktheizkörper Typ 33, Bauhöhe 500 mm, Baulänge 1600 mm|profilierte Front, weiß RAL 9016, Kanten gerundet (kindersicher)|einschließlich Konsolen, Entlüftung, Blindstopfen:Heizkörper
HZ-1521:46.:Stk:Thermostatkopf, Behördenausführung:5210:Thermostatkopf mit verdeckter Sollwertbegrenzung, diebstahlgesichert, 8-26 °C:Heizkörper
HZ-1522:1.:psch:Hydraulischer Abgleich Heizung:5220:Hydraulischer Abgleich der gesamten Anlage nach Verfahren B|einschließlich Berechnung, Einstellung und Dokumentation:Heizkörper
[ENDE_LOS]
[LOS]
Name:Los 2 Lüftung
RL-1101:1.:Stk:Zentrallüftungsgerät 6.500 m³/h, Rotationswärmeübertrager:1010:Zentrallüftungsgerät für Zu- und Abluft, Aufstellung im Technikraum|Volumenstrom® 6.500 m³/h, externe Pressung 350 Pa|Rotationswärmeübertrager, Rückwärmzahl 82 %|Filter ePM1 55 % (Zuluft), ePM10 50 % (Abluft)|SFP-Klasse 2:Zentralgeräte:Fabrikat Böenwerk
RL-1102:1.:Stk:Zentrallüftungsgerät 2.800 m³/h, Küche:1020:Zentrallüftungsgerät für die Küche, wetterfest|Volumenstrom® 2.800 m³/h, externe Pressung 420 Pa|Kreislaufverbundsystem, fettdichte Abluftkammer:Zentralgeräte:Fabrikat Böenwerk
RL-1103:2.:Stk:Heizregister 24 kW:1030:Lufterwärmer aus Kupfer/Aluminium, 24 kW bei 55/40 °C|mit Frostschutzthermostat:Zentralgeräte
RL-1104:2.:psch:Inbetriebnahme Lüftungsgerät:1040:Inbetriebnahme einschließlich Messung der Luftmengen und Protokoll:Zentralgeräte
RL-1201:40.5:m²:Blechkanal bis 250 mm Kantenlänge:2010:Luftkanal aus verzinktem Stahlblech, rechteckig, Kantenlänge bis 250 mm|Dichtheitsklasse C, Blechdicke nach Kantenlänge|einschließlich Flanschen, Dichtungen und Befestigung:Rechteckkanäle
RL-1202:121.:m²:Blechkanal bis 500 mm Kantenlänge:2020:Luftkanal aus verzinktem Stahlblech, rechteckig, Kantenlänge bis 500 mm|Dichtheitsklasse C, Blechdicke nach Kantenlänge|einschließlich Flanschen, Dichtungen und Befestigung:Rechteckkanäle
RL-1203:208.5:m²:Blechkanal bis 1000 mm Kantenlänge:2030:Luftkanal aus verzinktem Stahlblech, rechteckig, Kantenlänge bis 1000 mm|Dichtheitsklasse C, Blechdicke nach Kantenlänge|einschließlich Flanschen, Dichtungen und Befestigung:Rechteckkanäle
RL-1204:51.:m²:Blechkanal bis 1500 mm Kantenlänge:2040:Luftkanal aus verzinktem Stahlblech, rechteckig, Kantenlänge bis 1500 mm|Dichtheitsklasse C, Blechdicke nach Kantenlänge|einschließlich Flanschen, Dichtungen und Befestigung:Rechteckkanäle
RL-1205:103.:m²:Blechkanal bis 2000 mm Kantenlänge:2050:Luftkanal aus verzinktem Stahlblech, rechteckig, Kantenlänge bis 2000 mm|Dichtheitsklasse C, Blechdicke nach Kantenlänge|einschließlich Flanschen, Dichtungen und Befestigung:Rechteckkanäle
RL-1206:109.:m²:Formstücke bis 250 mm Kantenlänge:2060:Formstücke zu rechteckigen Luftkanälen (Bögen, Etagen, Übergänge, T-Stücke)|Kantenlänge bis 250 mm, Dichtheitsklasse C, mit Leitblechen:Rechteckkanäle
RL-1207:101.:m²:Formstücke bis 500 mm Kantenlänge:2070:Formstücke zu rechteckigen Luftkanälen (Bögen, Etagen, Übergänge, T-Stücke)|Kantenlänge bis 500 mm, Dichtheitsklasse C, mit Leitblechen:Rechteckkanäle
RL-1208:56.5:m²:Formstücke bis 1000 mm Kantenlänge:2080:Formstücke zu rechteckigen Luftkanälen (Bögen, Etagen, Übergänge, T-Stücke)|Kantenlänge bis 1000 mm, Dichtheitsklasse C, mit Leitblechen:Rechteckkanäle
RL-1209:17.:m²:Formstücke bis 1500 mm Kantenlänge:2090:Formstücke zu rechteckigen Luftkanälen (Bögen, Etagen, Übergänge, T-Stücke)|Kantenlänge bis 1500 mm, Dichtheitsklasse C, mit Leitblechen:Rechteckkanäle
RL-1210:56.:m²:Formstücke bis 2000 mm Kantenlänge:2100:Formstücke zu rechteckigen Luftkanälen (Bögen, Etagen, Übergänge, T-Stücke)|Kantenlänge bis 2000 mm, Dichtheitsklasse C, mit Leitblechen:Rechteckkanäle
RL-1211:186.5:m²:Kanaldämmung 30 mm, Elastomer:2110:Dämmung von Außen- und Fortluftkanälen gegen Tauwasser|Elastomerplatte 30 mm, diffusionsdicht verklebt:Rechteckkanäle
RL-1212:412.:m²:Kanaldämmung 50 mm, Mineralwolle:2120:Wärmedämmung von Zuluftkanälen, Mineralwollematte 50 mm, alukaschiert:Rechteckkanäle
RL-1301:81.5:m:Wickelfalzrohr DN 100:3010:Wickelfalzrohr aus verzinktem Stahlblech, DN 100, Dichtheitsklasse D|mit Lippendichtung, einschließlich Befestigung mit Schalldämmeinlage:Rundrohre
RL-1302:90.:m:Wickelfalzrohr DN 125:3020:Wickelfalzrohr aus verzinktem Stahlblech, DN 125, Dichtheitsklasse D|mit Lippendichtung, einschließlich Befestigung mit Schalldämmeinlage:Rundrohre
RL-1303:47.:m:Wickelfalzrohr DN 160:3030:Wickelfalzrohr aus verzinktem Stahlblech, DN 160, Dichtheitsklasse D|mit Lippendichtung, einschließlich Befestigung mit Schalldämmeinlage:Rundrohre
RL-1304:113.:m:Wickelfalzrohr DN 200:3040:Wickelfalzrohr aus verzinktem Stahlblech, DN 200, Dichtheitsklasse D|mit Lippendichtung, einschließlich Befestigung mit Schalldämmeinlage:Rundrohre
RL-1305:27.5:m:Wickelfalzrohr DN 250:3050:Wickelfalzrohr aus verzinktem Stahlblech, DN 250, Dichtheitsklasse D|mit Lippendichtung, einschließlich Befestigung mit Schalldämmeinlage:Rundrohre
RL-1306:83.:m:Wickelfalzrohr DN 315:3060:Wickelfalzrohr aus verzinktem Stahlblech, DN 315, Dichtheitsklasse D|mit Lippendichtung, einschließlich Befestigung mit Schalldämmeinlage:Rundrohre
RL-1307:57.:m:Wickelfalzrohr DN 400:3070:Wickelfalzrohr aus verzinktem Stahlblech, DN 400, Dichtheitsklasse D|mit Lippendichtung, einschließlich Befestigung mit Schalldämmeinlage:Rundrohre
RL-1308:121.5:m:Wickelfalzrohr DN 500:3080:Wickelfalzrohr aus verzinktem Stahlblech, DN 500, Dichtheitsklasse D|mit Lippendichtung, einschließlich Befestigung mit Schalldämmeinlage:Rundrohre
RL-1309:22.:Stk:Bogen 90° DN 100:3090:Bogen 90° mit Lippendichtung, DN 100, r = 1,0 D:Rundrohre
RL-1310:12.:Stk:Bogen 90° DN 125:3100:Bogen 90° mit Lippendichtung, DN 125, r = 1,0 D:Rundrohre
RL-1311:20.:Stk:Bogen 90° DN 160:3110:Bogen 90° mit Lippendichtung, DN 160, r = 1,0 D:Rundrohre
RL-1312:28.:Stk:Bogen 90° DN 200:3120:Bogen 90° mit Lippendichtung, DN 200, r = 1,0 D:Rundrohre
RL-1313:42.:Stk:Bogen 90° DN 250:3130:Bogen 90° mit Lippendichtung, DN 250, r = 1,0 D:Rundrohre
RL-1314:14.:Stk:Bogen 90° DN 315:3140:Bogen 90° mit Lippendichtung, DN 315, r = 1,0 D:Rundrohre
RL-1315:25.:Stk:Bogen 90° DN 400:3150:Bogen 90° mit Lippendichtung, DN 400, r = 1,0 D:Rundrohre
RL-1316:40.:Stk:Bogen 90° DN 500:3160:Bogen 90° mit Lippendichtung, DN 500, r = 1,0 D:Rundrohre
RL-1317:2.:Stk:T-Stück 90° DN 100:3170:T-Stück 90° mit Lippendichtung, DN 100, Abgang gleich oder kleiner:Rundrohre
RL-1318:13.:Stk:T-Stück 90° DN 125:3180:T-Stück 90° mit Lippendichtung, DN 125, Abgang gleich oder kleiner:Rundrohre
RL-1319:3.:Stk:T-Stück 90° DN 160:3190:T-Stück 90° mit Lippendichtung, DN 160, Abgang gleich oder kleiner:Rundrohre
RL-1320:16.:Stk:T-Stück 90° DN 200:3200:T-Stück 90° mit Lippendichtung, DN 200, Abgang gleich oder kleiner:Rundrohre
RL-1321:7.:Stk:T-Stück 90° DN 250:3210:T-Stück 90° mit Lippendichtung, DN 250, Abgang gleich oder kleiner:Rundrohre
RL-1322:13.:Stk:T-Stück 90° DN 315:3220:T-Stück 90° mit Lippendichtung, DN 315, Abgang gleich oder kleiner:Rundrohre
RL-1323:27.:Stk:T-Stück 90° DN 400:3230:T-Stück 90° mit Lippendichtung, DN 400, Abgang gleich oder kleiner:Rundrohre
RL-1324:27.:Stk:T-Stück 90° DN 500:3240:T-Stück 90° mit Lippendichtung, DN 500, Abgang gleich oder kleiner:Rundrohre
RL-1325:13.:Stk:Reduzierung DN 125:3250:Übergang symmetrisch mit Lippendichtung, DN 125 auf nächst kleinere Nennweite:Rundrohre
RL-1326:11.:Stk:Reduzierung DN 160:3260:Übergang symmetrisch mit Lippendichtung, DN 160 auf nächst kleinere Nennweite:Rundrohre
RL-1327:20.:Stk:Reduzierung DN 200:3270:Übergang symmetrisch mit Lippendichtung, DN 200 auf nächst kleinere Nennweite:Rundrohre
RL-1328:5.:Stk:Reduzierung DN 250:3280:Übergang symmetrisch mit Lippendichtung, DN 250 auf nächst kleinere Nennweite:Rundrohre
RL-1329:16.:Stk:Reduzierung DN 315:3290:Übergang symmetrisch mit Lippendichtung, DN 315 auf nächst kleinere Nennweite:Rundrohre
RL-1330:8.:Stk:Reduzierung DN 400:3300:Übergang symmetrisch mit Lippendichtung, DN 400 auf nächst kleinere Nennweite:Rundrohre
RL-1331:15.:Stk:Reduzierung DN 500:3310:Übergang symmetrisch mit Lippendichtung, DN 500 auf nächst kleinere Nennweite:Rundrohre
RL-1332:17.:Stk:Flexibler Schlauch DN 100, schallgedämmt:3320:Flexibles Lüftungsrohr DN 100, Länge bis 1,0 m, 25 mm Mineralwolle, innen perforiert:Rundrohre
RL-1333:11.:Stk:Flexibler Schlauch DN 125, schallgedämmt:3330:Flexibles Lüftungsrohr DN 125, Länge bis 1,0 m, 25 mm Mineralwolle, innen perforiert:Rundrohre
RL-1334:7.:Stk:Flexibler Schlauch DN 160, schallgedämmt:3340:Flexibles Lüftungsrohr DN 160, Länge bis 1,0 m, 25 mm Mineralwolle, innen perforiert:Rundrohre
RL-1335:7.:Stk:Flexibler Schlauch DN 200, schallgedämmt:3350:Flexibles Lüftungsrohr DN 200, Länge bis 1,0 m, 25 mm Mineralwolle, innen perforiert:Rundrohre
RL-1336:7.:Stk:Flexibler Schlauch DN 250, schallgedämmt:3360:Flexibles Lüftungsrohr DN 250, Länge bis 1,0 m, 25 mm Mineralwolle, innen perforiert:Rundrohre
RL-1337:14.:Stk:Flexibler Schlauch DN 315, schallgedämmt:3370:Flexibles Lüftungsrohr DN 315, Länge bis 1,0 m, 25 mm Mineralwolle, innen perforiert:Rundrohre
RL-1401:10.:Stk:Rohrschalldämpfer DN 160, 1000 mm:4010:Rohrschalldämpfer DN 160, Länge 1000 mm, Packungsdicke 50 mm|Einfügungsdämpfung bei 250 Hz® mindestens 11 dB:Schall- und Brandschutz
RL-1402:10.:Stk:Rohrschalldämpfer DN 200, 1000 mm:4020:Rohrschalldämpfer DN 200, Länge 1000 mm, Packungsdicke 50 mm|Einfügungsdämpfung bei 250 Hz® mindestens 9 dB:Schall- und Brandschutz
RL-1403:9.:Stk:Rohrschalldämpfer DN 250, 1000 mm:4030:Rohrschalldämpfer DN 250, Länge 1000 mm, Packungsdicke 50 mm|Einfügungsdämpfung bei 250 Hz® mindestens 16 dB:Schall- und Brandschutz
RL-1404:10.:Stk:Rohrschalldämpfer DN 315, 1000 mm:4040:Rohrschalldämpfer DN 315, Länge 1000 mm, Packungsdicke 50 mm|Einfügungsdämpfung bei 250 Hz® mindestens 12 dB:Schall- und Brandschutz
RL-1405:6.:Stk:Rohrschalldämpfer DN 400, 1000 mm:4050:Rohrschalldämpfer DN 400, Länge 1000 mm, Packungsdicke 50 mm|Einfügungsdämpfung bei 250 Hz® mindestens 9 dB:Schall- und Brandschutz
RL-1406:2.:Stk:Rohrschalldämpfer DN 500, 1000 mm:4060:Rohrschalldämpfer DN 500, Länge 1000 mm, Packungsdicke 50 mm|Einfügungsdämpfung bei 250 Hz® mindestens 17 dB:Schall- und Brandschutz
RL-1407:2.:Stk:Kulissenschalldämpfer 400 x 300 mm:4070:Kulissenschalldämpfer 400 x 300 x 1500 mm, Kulissendicke 200 mm|abriebfeste Glasseide, Gehäuse verzinkt:Schall- und Brandschutz
RL-1408:2.:Stk:Kulissenschalldämpfer 600 x 300 mm:4080:Kulissenschalldämpfer 600 x 300 x 1500 mm, Kulissendicke 200 mm|abriebfeste Glasseide, Gehäuse verzinkt:Schall- und Brandschutz
RL-1409:3.:Stk:Kulissenschalldämpfer 600 x 400 mm:4090:Kulissenschalldämpfer 600 x 400 x 1500 mm, Kulissendicke 200 mm|abriebfeste Glasseide, Gehäuse verzinkt:Schall- und Brandschutz
RL-1410:1.:Stk:Kulissenschalldämpfer 800 x 500 mm:4100:Kulissenschalldämpfer 800 x 500 x 1500 mm, Kulissendicke 200 mm|abriebfeste Glasseide, Gehäuse verzinkt:Schall- und Brandschutz
RL-1411:2.:Stk:Kulissenschalldämpfer 1000 x 500 mm:4110:Kulissenschalldämpfer 1000 x 500 x 1500 mm, Kulissendicke 200 mm|abriebfeste Glasseide, Gehäuse verzinkt:Schall- und Brandschutz
RL-1412:7.:Stk:Brandschutzklappe DN 100, EI 90:4120:Brandschutzklappe rund, DN 100, Klassifizierung EI 90 (ve, ho, i-o) S|mit Schmelzlot 72 °C und Federrücklaufmotor 24 V:Schall- und Brandschutz
RL-1413:8.:Stk:Brandschutzklappe DN 125, EI 90:4130:Brandschutzklappe rund, DN 125, Klassifizierung EI 90 (ve, ho, i-o) S|mit Schmelzlot 72 °C und Federrücklaufmotor 24 V:Schall- und Brandschutz
RL-1414:15.:Stk:Brandschutzklappe DN 160, EI 90:4140:Brandschutzklappe rund, DN 160, Klassifizierung EI 90 (ve, ho, i-o) S|mit Schmelzlot 72 °C und Federrücklaufmotor 24 V:Schall- und Brandschutz
RL-1415:14.:Stk:Brandschutzklappe DN 200, EI 90:4150:Brandschutzklappe rund, DN 200, Klassifizierung EI 90 (ve, ho, i-o) S|mit Schmelzlot 72 °C und Federrücklaufmotor 24 V:Schall- und Brandschutz
RL-1416:16.:Stk:Brandschutzklappe DN 250, EI 90:4160:Brandschutzklappe rund, DN 250, Klassifizierung EI 90 (ve, ho, i-o) S|mit Schmelzlot 72 °C und Federrücklaufmotor 24 V:Schall- und Brandschutz
RL-1417:2.:Stk:Brandschutzklappe DN 315, EI 90:4170:Brandschutzklappe rund, DN 315, Klassifizierung EI 90 (ve, ho, i-o) S|mit Schmelzlot 72 °C und Federrücklaufmotor 24 V:Schall- und Brandschutz
RL-1418:8.:Stk:Brandschutzklappe DN 400, EI 90:4180:Brandschutzklappe rund, DN 400, Klassifizierung EI 90 (ve, ho, i-o) S|mit Schmelzlot 72 °C und Federrücklaufmotor 24 V:Schall- und Brandschutz
RL-1419:4.:Stk:Brandschutzklappe 300 x 200 mm, EI 90:4190:Brandschutzklappe eckig, 300 x 200 mm, Klassifizierung EI 90 (ve, ho, i-o) S|mit Schmelzlot 72 °C und Federrücklaufmotor 24 V:Schall- und Brandschutz
RL-1420:4.:Stk:Brandschutzklappe 400 x 300 mm, EI 90:4200:Brandschutzklappe eckig, 400 x 300 mm, Klassifizierung EI 90 (ve, ho, i-o) S|mit Schmelzlot 72 °C und Federrücklaufmotor 24 V:Schall- und Brandschutz
RL-1421:2.:Stk:Brandschutzklappe 600 x 300 mm, EI 90:4210:Brandschutzklappe eckig, 600 x 300 mm, Klassifizierung EI 90 (ve, ho, i-o) S|mit Schmelzlot 72 °C und Federrücklaufmotor 24 V:Schall- und Brandschutz
RL-1422:6.:Stk:Brandschutzklappe 800 x 400 mm, EI 90:4220:Brandschutzklappe eckig, 800 x 400 mm, Klassifizierung EI 90 (ve, ho, i-o) S|mit Schmelzlot 72 °C und Federrücklaufmotor 24 V:Schall- und Brandschutz
RL-1501:16.:Stk:Volumenstromregler variabel DN 100:5010:Variabler Volumenstromregler DN 100, 40-600 m³/h|mit Kompaktregler 0-10 V, Dämmschale 40 mm:Luftdurchlässe und Regler
RL-1502:9.:Stk:Volumenstromregler variabel DN 125:5020:Variabler Volumenstromregler DN 125, 50-750 m³/h|mit Kompaktregler 0-10 V, Dämmschale 40 mm:Luftdurchlässe und Regler
RL-1503:18.:Stk:Volumenstromregler variabel DN 160:5030:Variabler Volumenstromregler DN 160, 64-960 m³/h|mit Kompaktregler 0-10 V, Dämmschale 40 mm:Luftdurchlässe und Regler
RL-1504:9.:Stk:Volumenstromregler variabel DN 200:5040:Variabler Volumenstromregler DN 200, 80-1200 m³/h|mit Kompaktregler 0-10 V, Dämmschale 40 mm:Luftdurchlässe und Regler
RL-1505:4.:Stk:Volumenstromregler variabel DN 250:5050:Variabler Volumenstromregler DN 250, 100-1500 m³/h|mit Kompaktregler 0-10 V, Dämmschale 40 mm:Luftdurchlässe und Regler
RL-1506:4.:Stk:Volumenstromregler variabel DN 315:5060:Variabler Volumenstromregler DN 315, 126-1890 m³/h|mit Kompaktregler 0-10 V, Dämmschale 40 mm:Luftdurchlässe und Regler
RL-1507:11.:Stk:Volumenstromregler konstant DN 100:5070:Konstantvolumenstromregler DN 100, mechanisch selbsttätig, Sollwertskala außen:Luftdurchlässe und Regler
RL-1508:11.:Stk:Volumenstromregler konstant DN 125:5080:Konstantvolumenstromregler DN 125, mechanisch selbsttätig, Sollwertskala außen:Luftdurchlässe und Regler
RL-1509:10.:Stk:Volumenstromregler konstant DN 160:5090:Konstantvolumenstromregler DN 160, mechanisch selbsttätig, Sollwertskala außen:Luftdurchlässe und Regler
RL-1510:19.:Stk:Volumenstromregler konstant DN 200:5100:Konstantvolumenstromregler DN 200, mechanisch selbsttätig, Sollwertskala außen:Luftdurchlässe und Regler
RL-1511:9.:Stk:Volumenstromregler konstant DN 250:5110:Konstantvolumenstromregler DN 250, mechanisch selbsttätig, Sollwertskala außen:Luftdurchlässe und Regler
RL-1512:18.:Stk:Drallauslass 300 mm:5120:Drallauslass, Frontplatte 300 x 300 mm, verstellbare Lamellen|Anschlusskasten mit Drosselklappe, weiß RAL 9010:Luftdurchlässe und Regler
RL-1513:30.:Stk:Drallauslass 400 mm:5130:Drallauslass, Frontplatte 400 x 400 mm, verstellbare Lamellen|Anschlusskasten mit Drosselklappe, weiß RAL 9010:Luftdurchlässe und Regler
RL-1514:20.:Stk:Drallauslass 500 mm:5140:Drallauslass, Frontplatte 500 x 500 mm, verstellbare Lamellen|Anschlusskasten mit Drosselklappe, weiß RAL 9010:Luftdurchlässe und Regler
RL-1515:13.:Stk:Drallauslass 600 mm:5150:Drallauslass, Frontplatte 600 x 600 mm, verstellbare Lamellen|Anschlusskasten mit Drosselklappe, weiß RAL 9010:Luftdurchlässe und Regler:Mehrzweckraum
RL-1516:24.:Stk:Drallauslass 625 mm:5160:Drallauslass, Frontplatte 625 x 625 mm, verstellbare Lamellen|Anschlusskasten mit Drosselklappe, weiß RAL 9010:Luftdurchlässe und Regler
RL-1517:5.:Stk:Tellerventil Abluft DN 100:5170:Tellerventil für Abluft, DN 100, Stahlblech weiß, mit Einbauring:Luftdurchlässe und Regler
RL-1518:14.:Stk:Tellerventil Abluft DN 125:5180:Tellerventil für Abluft, DN 125, Stahlblech weiß, mit Einbauring:Luftdurchlässe und Regler
RL-1519:22.:Stk:Tellerventil Abluft DN 160:5190:Tellerventil für Abluft, DN 160, Stahlblech weiß, mit Einbauring:Luftdurchlässe und Regler
RL-1520:7.:Stk:Tellerventil Abluft DN 200:5200:Tellerventil für Abluft, DN 200, Stahlblech weiß, mit Einbauring:Luftdurchlässe und Regler
RL-1521:22.:Stk:Lüftungsgitter 225 x 125 mm:5210:Lüftungsgitter aus Aluminium, 225 x 125 mm, waagrechte Lamellen einzeln verstellbar|natur eloxiert, mit Mengeneinstellung:Luftdurchlässe und Regler
RL-1522:16.:Stk:Lüftungsgitter 325 x 125 mm:5220:Lüftungsgitter aus Aluminium, 325 x 125 mm, waagrechte Lamellen einzeln verstellbar|natur eloxiert, mit Mengeneinstellung:Luftdurchlässe und Regler
RL-1523:24.:Stk:Lüftungsgitter 425 x 225 mm:5230:Lüftungsgitter aus Aluminium, 425 x 225 mm, waagrechte Lamellen einzeln verstellbar|natur eloxiert, mit Mengeneinstellung:Luftdurchlässe und Regler
RL-1524:24.:Stk:Lüftungsgitter 625 x 225 mm:5240:Lüftungsgitter aus Aluminium, 625 x 225 mm, waagrechte Lamellen einzeln verstellbar|natur eloxiert, mit Mengeneinstellung:Luftdurchlässe und Regler
RL-1525:2.:Stk:Wetterschutzgitter 1000 x 800 mm:5250:Wetterschutzgitter aus Aluminium, 1000 x 800 mm, mit Vogelschutzgitter|freier Querschnitt mindestens 55 %:Luftdurchlässe und Regler
RL-1526:1.:psch:Einregulierung der Luftmengen:5260:Einregulierung aller Luftdurchlässe|Messprotokoll je Raum, Abweichung max. ±10 %:Luftdurchlässe und Regler
[ENDE_LOS]
[LOS]
Name:Los 3 Sanitär
SA-1101:242.5:m:Edelstahlrohr 15 mm, Pressverbindung:1010:Rohrleitung aus nichtrostendem Stahl 1.4521, 15 mm, für Trinkwasser|Pressverbindung mit Prüfsicherheit, einschließlich Befestigung:Trinkwasserleitungen
SA-1102:222.:m:Edelstahlrohr 18 mm, Pressverbindung:1020:Rohrleitung aus nichtrostendem Stahl 1.4521, 18 mm, für Trinkwasser|Pressverbindung mit Prüfsicherheit, einschließlich Befestigung:Trinkwasserleitungen
SA-1103:203.5:m:Edelstahlrohr 22 mm, Pressverbindung:1030:Rohrleitung aus nichtrostendem Stahl 1.4521, 22 mm, für Trinkwasser|Pressverbindung mit Prüfsicherheit, einschließlich Befestigung:Trinkwasserleitungen
SA-1104:210.5:m:Edelstahlrohr 28 mm, Pressverbindung:1040:Rohrleitung aus nichtrostendem Stahl 1.4521, 28 mm, für Trinkwasser|Pressverbindung mit Prüfsicherheit, einschließlich Befestigung:Trinkwasserleitungen
SA-1105:30.:m:Edelstahlrohr 35 mm, Pressverbindung:1050:Rohrleitung aus nichtrostendem Stahl 1.4521, 35 mm, für Trinkwasser|Pressverbindung mit Prüfsicherheit, einschließlich Befestigung:Trinkwasserleitungen
SA-1106:146.5:m:Edelstahlrohr 42 mm, Pressverbindung:1060:Rohrleitung aus nichtrostendem Stahl 1.4521, 42 mm, für Trinkwasser|Pressverbindung mit Prüfsicherheit, einschließlich Befestigung:Trinkwasserleitungen
SA-1107:119.:m:Edelstahlrohr 54 mm, Pressverbindung:1070:Rohrleitung aus nichtrostendem Stahl 1.4521, 54 mm, für Trinkwasser|Pressverbindung mit Prüfsicherheit, einschließlich Befestigung:Trinkwasserleitungen
SA-1108:21.:Stk:Pressfitting Bogen 90° 15 mm:1080:Pressfitting aus nichtrostendem Stahl, Bogen 90°, 15 mm:Trinkwasserleitungen
SA-1109:65.:Stk:Pressfitting Bogen 90° 18 mm:1090:Pressfitting aus nichtrostendem Stahl, Bogen 90°, 18 mm:Trinkwasserleitungen
SA-1110:36.:Stk:Pressfitting Bogen 90° 22 mm:1100:Pressfitting aus nichtrostendem Stahl, Bogen 90°, 22 mm:Trinkwasserleitungen
SA-1111:83.:Stk:Pressfitting Bogen 90° 28 mm:1110:Pressfitting aus nichtrostendem Stahl, Bogen 90°, 28 mm:Trinkwasserleitungen
SA-1112:31.:Stk:Pressfitting Bogen 90° 35 mm:1120:Pressfitting aus nichtrostendem Stahl, Bogen 90°, 35 mm:Trinkwasserleitungen
SA-1113:53.:Stk:Pressfitting Bogen 90° 42 mm:1130:Pressfitting aus nichtrostendem Stahl, Bogen 90°, 42 mm:Trinkwasserleitungen
SA-1114:47.:Stk:Pressfitting Bogen 90° 54 mm:1140:Pressfitting aus nichtrostendem Stahl, Bogen 90°, 54 mm:Trinkwasserleitungen
SA-1115:48.:Stk:Pressfitting T-Stück 15 mm:1150:Pressfitting aus nichtrostendem Stahl, T-Stück, 15 mm, gleich oder reduziert:Trinkwasserleitungen
SA-1116:36.:Stk:Pressfitting T-Stück 18 mm:1160:Pressfitting aus nichtrostendem Stahl, T-Stück, 18 mm, gleich oder reduziert:Trinkwasserleitungen
SA-1117:57.:Stk:Pressfitting T-Stück 22 mm:1170:Pressfitting aus nichtrostendem Stahl, T-Stück, 22 mm, gleich oder reduziert:Trinkwasserleitungen
SA-1118:47.:Stk:Pressfitting T-Stück 28 mm:1180:Pressfitting aus nichtrostendem Stahl, T-Stück, 28 mm, gleich oder reduziert:Trinkwasserleitungen
SA-1119:26.:Stk:Pressfitting T-Stück 35 mm:1190:Pressfitting aus nichtrostendem Stahl, T-Stück, 35 mm, gleich oder reduziert:Trinkwasserleitungen
SA-1120:58.:Stk:Pressfitting T-Stück 42 mm:1200:Pressfitting aus nichtrostendem Stahl, T-Stück, 42 mm, gleich oder reduziert:Trinkwasserleitungen
SA-1121:32.:Stk:Pressfitting T-Stück 54 mm:1210:Pressfitting aus nichtrostendem Stahl, T-Stück, 54 mm, gleich oder reduziert:Trinkwasserleitungen
SA-1122:155.:m:Rohrdämmung 15 mm, Trinkwasser kalt:1220:Dämmung gegen Tauwasser und Erwärmung, Rohr 15 mm|geschlossenzelliger Schlauch 13 mm, Stöße verklebt:Trinkwasserleitungen
SA-1123:75.:m:Rohrdämmung 18 mm, Trinkwasser kalt:1230:Dämmung gegen Tauwasser und Erwärmung, Rohr 18 mm|geschlossenzelliger Schlauch 13 mm, Stöße verklebt:Trinkwasserleitungen
SA-1124:187.5:m:Rohrdämmung 22 mm, Trinkwasser kalt:1240:Dämmung gegen Tauwasser und Erwärmung, Rohr 22 mm|geschlossenzelliger Schlauch 13 mm, Stöße verklebt:Trinkwasserleitungen
SA-1125:225.:m:Rohrdämmung 28 mm, Trinkwasser kalt:1250:Dämmung gegen Tauwasser und Erwärmung, Rohr 28 mm|geschlossenzelliger Schlauch 13 mm, Stöße verklebt:Trinkwasserleitungen
SA-1126:195.5:m:Rohrdämmung 35 mm, Trinkwasser kalt:1260:Dämmung gegen Tauwasser und Erwärmung, Rohr 35 mm|geschlossenzelliger Schlauch 13 mm, Stöße verklebt:Trinkwasserleitungen
SA-1127:225.:m:Rohrdämmung 42 mm, Trinkwasser kalt:1270:Dämmung gegen Tauwasser und Erwärmung, Rohr 42 mm|geschlossenzelliger Schlauch 13 mm, Stöße verklebt:Trinkwasserleitungen
SA-1128:88.5:m:Rohrdämmung 54 mm, Trinkwasser kalt:1280:Dämmung gegen Tauwasser und Erwärmung, Rohr 54 mm|geschlossenzelliger Schlauch 13 mm, Stöße verklebt:Trinkwasserleitungen
SA-1129:96.5:m:Rohrdämmung 15 mm, Trinkwasser warm:1290:Wärmedämmung 100 % nach GEG, Rohr 15 mm, Mineralwolleschale alukaschiert:Trinkwasserleitungen
SA-1130:110.:m:Rohrdämmung 18 mm, Trinkwasser warm:1300:Wärmedämmung 100 % nach GEG, Rohr 18 mm, Mineralwolleschale alukaschiert:Trinkwasserleitungen
SA-1131:137.:m:Rohrdämmung 22 mm, Trinkwasser warm:1310:Wärmedämmung 100 % nach GEG, Rohr 22 mm, Mineralwolleschale alukaschiert:Trinkwasserleitungen
SA-1132:29.:m:Rohrdämmung 28 mm, Trinkwasser warm:1320:Wärmedämmung 100 % nach GEG, Rohr 28 mm, Mineralwolleschale alukaschiert:Trinkwasserleitungen
SA-1133:81.5:m:Rohrdämmung 35 mm, Trinkwasser warm:1330:Wärmedämmung 100 % nach GEG, Rohr 35 mm, Mineralwolleschale alukaschiert:Trinkwasserleitungen
SA-1134:170.5:m:Rohrdämmung 42 mm, Trinkwasser warm:1340:Wärmedämmung 100 % nach GEG, Rohr 42 mm, Mineralwolleschale alukaschiert:Trinkwasserleitungen
SA-1135:181.:m:Rohrdämmung 54 mm, Trinkwasser warm:1350:Wärmedämmung 100 % nach GEG, Rohr 54 mm, Mineralwolleschale alukaschiert:Trinkwasserleitungen
SA-1201:36.:m:Schallschutzrohr DN 50:2010:Abwasserrohr aus mineralverstärktem Polypropylen, DN 50|Schallpegel bei 4 l/s® max. 17 dB(A), einschließlich Rohrschellen mit Gummieinlage:Abwasserleitungen
SA-1202:17.5:m:Schallschutzrohr DN 75:2020:Abwasserrohr aus mineralverstärktem Polypropylen, DN 75|Schallpegel bei 4 l/s® max. 17 dB(A), einschließlich Rohrschellen mit Gummieinlage:Abwasserleitungen
SA-1203:62.5:m:Schallschutzrohr DN 90:2030:Abwasserrohr aus mineralverstärktem Polypropylen, DN 90|Schallpegel bei 4 l/s® max. 17 dB(A), einschließlich Rohrschellen mit Gummieinlage:Abwasserleitungen
SA-1204:91.:m:Schallschutzrohr DN 110:2040:Abwasserrohr aus mineralverstärktem Polypropylen, DN 110|Schallpegel bei 4 l/s® max. 17 dB(A), einschließlich Rohrschellen mit Gummieinlage:Abwasserleitungen
SA-1205:28.:m:Schallschutzrohr DN 125:2050:Abwasserrohr aus mineralverstärktem Polypropylen, DN 125|Schallpegel bei 4 l/s® max. 17 dB(A), einschließlich Rohrschellen mit Gummieinlage:Abwasserleitungen
SA-1206:110.:m:Schallschutzrohr DN 160:2060:Abwasserrohr aus mineralverstärktem Polypropylen, DN 160|Schallpegel bei 4 l/s® max. 17 dB(A), einschließlich Rohrschellen mit Gummieinlage:Abwasserleitungen
SA-1207:23.:Stk:Bogen 45° DN 50:2070:Bogen 45° aus mineralverstärktem Polypropylen, DN 50, mit Steckmuffe:Abwasserleitungen
SA-1208:48.:Stk:Bogen 45° DN 75:2080:Bogen 45° aus mineralverstärktem Polypropylen, DN 75, mit Steckmuffe:Abwasserleitungen
SA-1209:60.:Stk:Bogen 45° DN 90:2090:Bogen 45° aus mineralverstärktem Polypropylen, DN 90, mit Steckmuffe:Abwasserleitungen
SA-1210:9.:Stk:Bogen 45° DN 110:2100:Bogen 45° aus mineralverstärktem Polypropylen, DN 110, mit Steckmuffe:Abwasserleitungen
SA-1211:16.:Stk:Bogen 45° DN 125:2110:Bogen 45° aus mineralverstärktem Polypropylen, DN 125, mit Steckmuffe:Abwasserleitungen
SA-1212:50.:Stk:Bogen 45° DN 160:2120:Bogen 45° aus mineralverstärktem Polypropylen, DN 160, mit Steckmuffe:Abwasserleitungen
SA-1213:33.:Stk:Abzweig 45° DN 50:2130:Abzweig 45° aus mineralverstärktem Polypropylen, DN 50, Abgang gleich oder kleiner:Abwasserleitungen
SA-1214:40.:Stk:Abzweig 45° DN 75:2140:Abzweig 45° aus mineralverstärktem Polypropylen, DN 75, Abgang gleich oder kleiner:Abwasserleitungen
SA-1215:34.:Stk:Abzweig 45° DN 90:2150:Abzweig 45° aus mineralverstärktem Polypropylen, DN 90, Abgang gleich oder kleiner:Abwasserleitungen
SA-1216:29.:Stk:Abzweig 45° DN 110:2160:Abzweig 45° aus mineralverstärktem Polypropylen, DN 110, Abgang gleich oder kleiner:Abwasserleitungen
SA-1217:28.:Stk:Abzweig 45° DN 125:2170:Abzweig 45° aus mineralverstärktem Polypropylen, DN 125, Abgang gleich oder kleiner:Abwasserleitungen
SA-1218:17.:Stk:Abzweig 45° DN 160:2180:Abzweig 45° aus mineralverstärktem Polypropylen, DN 160, Abgang gleich oder kleiner:Abwasserleitungen
SA-1219:1.:Stk:Reinigungsrohr DN 90:2190:Reinigungsrohr mit runder Öffnung, DN 90, wasserdicht verschraubt:Abwasserleitungen
SA-1220:2.:Stk:Reinigungsrohr DN 110:2200:Reinigungsrohr mit runder Öffnung, DN 110, wasserdicht verschraubt:Abwasserleitungen
SA-1221:2.:Stk:Reinigungsrohr DN 125:2210:Reinigungsrohr mit runder Öffnung, DN 125, wasserdicht verschraubt:Abwasserleitungen
SA-1222:1.:Stk:Reinigungsrohr DN 160:2220:Reinigungsrohr mit runder Öffnung, DN 160, wasserdicht verschraubt:Abwasserleitungen
SA-1223:11.:Stk:Brandschutzmanschette DN 90, R 90:2230:Rohrabschottung R 90 für brennbare Rohre, DN 90, in Massivdecken und -wänden:Abwasserleitungen
SA-1224:16.:Stk:Brandschutzmanschette DN 110, R 90:2240:Rohrabschottung R 90 für brennbare Rohre, DN 110, in Massivdecken und -wänden:Abwasserleitungen
SA-1225:6.:Stk:Brandschutzmanschette DN 125, R 90:2250:Rohrabschottung R 90 für brennbare Rohre, DN 125, in Massivdecken und -wänden:Abwasserleitungen
SA-1226:3.:Stk:Brandschutzmanschette DN 160, R 90:2260:Rohrabschottung R 90 für brennbare Rohre, DN 160, in Massivdecken und -wänden:Abwasserleitungen
SA-1301:18.:Stk:Kinder-WC wandhängend, Sitzhöhe 26 cm:3010:Wandhängendes Tiefspül-WC für Kinder von 2 bis 5 Jahren|Sanitärporzellan weiß, spülrandlos, 4,5/3 l|einschließlich Sitzauflage, Farbe nach Muster:Sanitärobjekte:Krippe
SA-1302:12.:Stk:Kinder-WC wandhängend, Sitzhöhe 35 cm:3020:wie vor, jedoch für Kinder von 5 bis 6 Jahren, mit WC-Sitz:Sanitärobjekte:Kindergarten
SA-1303:9.:Stk:WC wandhängend, spülrandlos:3030:Wandhängendes Tiefspül-WC, Ausladung 54 cm, Sanitärporzellan weiß|mit WC-Sitz, Scharniere aus Edelstahl, Absenkautomatik:Sanitärobjekte
SA-1304:2.:Stk:WC barrierefrei, Ausladung 70 cm:3040:Wandhängendes WC nach DIN 18040-1, Ausladung 70 cm|mit Rückenstütze, Spülauslösung beidseitig:Sanitärobjekte
SA-1305:4.:Stk:Urinal mit Infrarotsteuerung:3050:Absaugurinal aus Sanitärporzellan, Zulauf von hinten|elektronische Steuerung verdeckt, Netzbetrieb, 1 l:Sanitärobjekte
SA-1306:6.:Stk:Waschrinne Kinder, 120 cm:3060:Reihenwaschanlage aus Mineralguss, 120 cm, zwei Höhen 55/65 cm|für vier Armaturen, Ecken gerundet:Sanitärobjekte:Krippe
SA-1307:8.:Stk:Handwaschbecken 40 cm:3070:Waschbecken aus Sanitärporzellan weiß, Breite 40 cm|mit Überlauf, Geruchverschluss verchromt, Eckventilen:Sanitärobjekte
SA-1308:8.:Stk:Handwaschbecken 50 cm:3080:Waschbecken aus Sanitärporzellan weiß, Breite 50 cm|mit Überlauf, Geruchverschluss verchromt, Eckventilen:Sanitärobjekte
SA-1309:5.:Stk:Handwaschbecken 60 cm:3090:Waschbecken aus Sanitärporzellan weiß, Breite 60 cm|mit Überlauf, Geruchverschluss verchromt, Eckventilen:Sanitärobjekte
SA-1310:10.:Stk:Handwaschbecken 65 cm:3100:Waschbecken aus Sanitärporzellan weiß, Breite 65 cm|mit Überlauf, Geruchverschluss verchromt, Eckventilen:Sanitärobjekte
SA-1311:3.:Stk:Ausgussbecken mit Klapprost:3110:Ausgussbecken aus Stahl, emailliert, 50 x 34 cm, mit Klapprost und Rückwand:Sanitärobjekte
SA-1312:2.:Stk:Duschwanne bodengleich 100 x 100 cm:3120:Bodengleiche Duschfläche 100 x 100 cm, Stahl emailliert, rutschhemmend Klasse C:Sanitärobjekte
SA-1313:1.:Stk:Wickelkombination mit Becken:3130:Wickeltisch mit integrierter Waschmulde und Handbrause, Breite 180 cm|ausziehbare Treppe, Kanten gepolstert:Sanitärobjekte:Krippe
SA-1314:5.:Stk:Vorwandelement für WC:3140:Installationselement für WC, Höhe 112 cm, Betätigung von vorn|selbsttragender Stahlrahmen, pulverbeschichtet:Sanitärobjekte
SA-1315:14.:Stk:Vorwandelement für WC, höhenverstellbar:3150:Installationselement für WC, höhenverstellbar, Verstellbereich 20 cm, barrierefrei|selbsttragender Stahlrahmen, pulverbeschichtet:Sanitärobjekte
SA-1316:12.:Stk:Vorwandelement für Urinal:3160:Installationselement für Urinal, Höhe 112-130 cm|selbsttragender Stahlrahmen, pulverbeschichtet:Sanitärobjekte
SA-1317:40.:Stk:Vorwandelement für Waschtisch:3170:Installationselement für Waschtisch, Höhe 112 cm, mit Schallschutzset|selbsttragender Stahlrahmen, pulverbeschichtet:Sanitärobjekte
SA-1318:23.:Stk:Vorwandelement für Stützgriff:3180:Installationselement für Stützgriff, Traglast 120 kg|selbsttragender Stahlrahmen, pulverbeschichtet:Sanitärobjekte
SA-1401:34.:Stk:Waschtischarmatur, Selbstschluss:4010:Selbstschlussarmatur, Laufzeit 7 s, Verbrühschutz 38 °C|thermische Desinfektion möglich:Armaturen Sanitär
SA-1402:11.:Stk:Einhebelmischer Waschtisch:4020:Einhebel-Waschtischmischer, verchromt, Durchfluss 5 l/min, Temperaturbegrenzung:Armaturen Sanitär
SA-1403:5.:Stk:Brausethermostat Aufputz:4030:Brausethermostat mit Sicherheitssperre bei 38 °C, Handbrause, Stange 90 cm:Armaturen Sanitär
SA-1404:3.:Stk:Küchenarmatur mit Schlauchbrause:4040:Einhebel-Spültischmischer mit Schlauchbrause, schwenkbar 120°:Armaturen Sanitär:Küche
SA-1405:17.:Stk:Freiflussventil 15 mm:4050:Schrägsitzventil (Freiflussventil) aus Rotguss, Pressanschluss 15 mm|totraumfrei, mit Entleerung:Armaturen Sanitär
SA-1406:18.:Stk:Freiflussventil 18 mm:4060:Schrägsitzventil (Freiflussventil) aus Rotguss, Pressanschluss 18 mm|totraumfrei, mit Entleerung:Armaturen Sanitär
SA-1407:16.:Stk:Freiflussventil 22 mm:4070:Schrägsitzventil (Freiflussventil) aus Rotguss, Pressanschluss 22 mm|totraumfrei, mit Entleerung:Armaturen Sanitär
SA-1408:2.:Stk:Freiflussventil 28 mm:4080:Schrägsitzventil (Freiflussventil) aus Rotguss, Pressanschluss 28 mm|totraumfrei, mit Entleerung:Armaturen Sanitär
SA-1409:4.:Stk:Freiflussventil 35 mm:4090:Schrägsitzventil (Freiflussventil) aus Rotguss, Pressanschluss 35 mm|totraumfrei, mit Entleerung:Armaturen Sanitär
SA-1410:3.:Stk:Freiflussventil 42 mm:4100:Schrägsitzventil (Freiflussventil) aus Rotguss, Pressanschluss 42 mm|totraumfrei, mit Entleerung:Armaturen Sanitär
SA-1411:2.:Stk:Zirkulationsregulierventil 18 mm:4110:Automatisches Regulierventil für Zirkulation, 18 mm, 50-65 °C|mit Thermometer und Dämmschale:Armaturen Sanitär
SA-1412:8.:Stk:Zirkulationsregulierventil 22 mm:4120:Automatisches Regulierventil für Zirkulation, 22 mm, 50-65 °C|mit Thermometer und Dämmschale:Armaturen Sanitär
SA-1413:5.:Stk:Zirkulationsregulierventil 28 mm:4130:Automatisches Regulierventil für Zirkulation, 28 mm, 50-65 °C|mit Thermometer und Dämmschale:Armaturen Sanitär
SA-1414:3.:Stk:Zirkulationsregulierventil 35 mm:4140:Automatisches Regulierventil für Zirkulation, 35 mm, 50-65 °C|mit Thermometer und Dämmschale:Armaturen Sanitär
SA-1415:1.:Stk:Hauswasserstation DN 40:4150:Hauswasserstation mit rückspülbarem Filter 95 µm, Druckminderer und Rückflussverhinderer, DN 40:Armaturen Sanitär
SA-1416:1.:Stk:Enthärtungsanlage 3,2 m³/h:4160:Enthärtungsanlage nach dem Ionenaustauschverfahren, Nenndurchfluss® 3,2 m³/h|Desinfektion während der Regeneration:Armaturen Sanitär
SA-1417:2.:Stk:Frischwasserstation 60 l/min:4170:Frischwasserstation zur Trinkwassererwärmung im Durchfluss, 60 l/min bei 60/10 °C|Plattenwärmeübertrager edelstahlgelötet, mit Zirkulationsset:Armaturen Sanitär
SA-1418:6.:Stk:Spülstation Hygiene:4180:Automatische Spüleinrichtung für den Erhalt der Trinkwassergüte|Programmierung über Zeit, Temperatur und Volumen, Protokollspeicher:Armaturen Sanitär
SA-1419:1.:psch:Spülen und Druckprüfung Trinkwasser:4190:Spülen der Trinkwasserleitungen und Druckprüfung mit Inertgas|Protokolle für jeden Bauabschnitt, Probenahme an 8 Stellen:Armaturen Sanitär
[ENDE_LOS]
