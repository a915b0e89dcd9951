<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
  <context>
    <name>lumacfg</name>
    <message>
      <source>no rack</source>
      <translation>kein Rack</translation>
    </message>
    <message>
      <source>Position %1 of %2: %3</source>
      <translation>Position %1 von %2: %3</translation>
    </message>
    <message>
      <source>, does not fit: %1</source>
      <translation>, passt nicht: %1</translation>
    </message>
    <message>
      <source>Tray %1</source>
      <translation>Tray %1</translation>
    </message>
    <message>
      <source>Tray picture</source>
      <translation>Tray-Abbildung</translation>
    </message>
    <message>
      <source>Tray picture, %1</source>
      <translation>Tray-Abbildung, %1</translation>
    </message>
    <message>
      <source>cannot read %1: %2</source>
      <translation>%1 kann nicht gelesen werden: %2</translation>
    </message>
    <message>
      <source>cannot write %1: %2</source>
      <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
      <source>Could not get OPAL Application Name. - %1</source>
      <translation>Der Name der OPAL-Anwendung konnte nicht ermittelt werden. - %1</translation>
    </message>
    <message>
      <source>Could not add device for %1</source>
      <translation>Das Gerät für %1 konnte nicht hinzugefügt werden</translation>
    </message>
    <message>
      <source>The user name or password is wrong (%1). Tries left: %2.</source>
      <translation>Benutzername oder Passwort ist falsch (%1). Verbleibende Versuche: %2.</translation>
    </message>
    <message>
      <source>The loader refuses this entry: %1</source>
      <translation>Das Ladeprogramm weist diesen Eintrag zurück: %1</translation>
    </message>
    <message>
      <source>On the custom trays:
%1</source>
      <translation>Auf den benutzerdefinierten Trays:
%1</translation>
    </message>
    <message>
      <source>%1: fits</source>
      <translation>%1: passt</translation>
    </message>
    <message>
      <source>%1: too wide: %2 across, RACK_X_DIST %3</source>
      <translation>%1: zu breit: %2 quer, RACK_X_DIST %3</translation>
    </message>
    <message>
      <source>%1: too long: %2 deep, RACK_Y_DIST %3</source>
      <translation>%1: zu lang: %2 tief, RACK_Y_DIST %3</translation>
    </message>
    <message>
      <source>Rack ID &amp;%1:</source>
      <translation>Rack-ID &amp;%1:</translation>
    </message>
    <message>
      <source>%1 (1 to %2 characters):</source>
      <translation>%1 (1 bis %2 Zeichen):</translation>
    </message>
    <message>
      <source>%1 (any number but %2):</source>
      <translation>%1 (jede Zahl außer %2):</translation>
    </message>
    <message>
      <source>%1 (a rack):</source>
      <translation>%1 (ein Rack):</translation>
    </message>
    <message>
      <source>No station of the data system was found (%1); choose the folder the data system is installed in, the one that holds LUMAEXE or where LUMAEXE may be made.</source>
      <translation>Es wurde keine Station des Datensystems gefunden (%1); wählen Sie den Ordner, in dem das Datensystem installiert ist, also den Ordner, der LUMAEXE enthält oder in dem LUMAEXE angelegt werden darf.</translation>
    </message>
    <message>
      <source>%1: No such file or directory (the registry store names the data system's folder; LUMACFG_PROGRAM_DIR is not set)</source>
      <translation>%1: Datei oder Verzeichnis nicht gefunden (der Registrierungsspeicher nennt den Ordner des Datensystems; LUMACFG_PROGRAM_DIR ist nicht gesetzt)</translation>
    </message>
    <message>
      <source>%1: it names no data system folder (no "Path" under HKEY_LOCAL_MACHINE\%2)</source>
      <translation>%1: nennt keinen Ordner des Datensystems (kein "Path" unter HKEY_LOCAL_MACHINE\%2)</translation>
    </message>
    <message>
      <source>%1: %2 (the program directory of the data system folder "%3" that %4 names)</source>
      <translation>%1: %2 (das Programmverzeichnis des Datensystemordners "%3", den %4 nennt)</translation>
    </message>
    <message>
      <source>%1: its data system folder "%2" is not a full path (one that starts with "/")</source>
      <translation>%1: sein Datensystemordner "%2" ist kein vollständiger Pfad (einer, der mit "/" beginnt)</translation>
    </message>
    <message>
      <source>%1: %2 is outside the accepted range %3.</source>
      <translation>%1: %2 liegt außerhalb des zulässigen Bereichs %3.</translation>
    </message>
    <message>
      <source>%1: %2 with %3 %4 makes %5 vials; the accepted range is %6.</source>
      <translation>%1: %2 mit %3 %4 ergibt %5 Gefäße; zulässig ist %6.</translation>
    </message>
    <message>
      <source>%1: %2 is the name of a standard tray.</source>
      <translation>%1: %2 ist der Name eines Standard-Trays.</translation>
    </message>
    <message>
      <source>%1: %2 is the name of a standard rack.</source>
      <translation>%1: %2 ist der Name eines Standard-Racks.</translation>
    </message>
    <message>
      <source>%1: %2 is already the name of %3.</source>
      <translation>%1: %2 ist bereits der Name von %3.</translation>
    </message>
    <message>
      <source>%1: %2 is not a rack; accepted are %3 and the custom racks.</source>
      <translation>%1: %2 ist kein Rack; zulässig sind %3 und die benutzerdefinierten Racks.</translation>
    </message>
    <message>
      <source>A tray has no key %1.</source>
      <translation>Ein Tray hat keinen Schlüssel %1.</translation>
    </message>
    <message>
      <source>A rack has no key %1.</source>
      <translation>Ein Rack hat keinen Schlüssel %1.</translation>
    </message>
    <message>
      <source>%1 is in use: %2 holds it.</source>
      <translation>%1 wird verwendet: %2 verweist darauf.</translation>
    </message>
    <message>
      <source>%1 may be in use by a tray the damaged list hides: %2.</source>
      <translation>%1 wird möglicherweise von einem Tray verwendet, den die beschädigte Liste verbirgt: %2.</translation>
    </message>
    <message>
      <source>%1 does not load: %2.</source>
      <translation>%1 wird nicht geladen: %2.</translation>
    </message>
    <message>
      <source>The tray list of custrack.ini is damaged: %1. Entries it names may be missing; New, Copy and Delete of trays are refused until it is repaired in the file.</source>
      <translation>Die Tray-Liste in custrack.ini ist beschädigt: %1. Einträge, die sie nennt, fehlen möglicherweise; Neu, Kopieren und Löschen von Trays sind gesperrt, bis sie in der Datei repariert ist.</translation>
    </message>
    <message>
      <source>The rack list of custrack.ini is damaged: %1. Entries it names may be missing; New, Copy and Delete of racks are refused until it is repaired in the file.</source>
      <translation>Die Rack-Liste in custrack.ini ist beschädigt: %1. Einträge, die sie nennt, fehlen möglicherweise; Neu, Kopieren und Löschen von Racks sind gesperrt, bis sie in der Datei repariert ist.</translation>
    </message>
    <message>
      <source>No id is free: custom trays take the ids %1 to %2.</source>
      <translation>Keine ID ist frei: benutzerdefinierte Trays erhalten die IDs %1 bis %2.</translation>
    </message>
    <message>
      <source>No id is free: custom racks take the ids %1 to %2.</source>
      <translation>Keine ID ist frei: benutzerdefinierte Racks erhalten die IDs %1 bis %2.</translation>
    </message>
    <message>
      <source>a number up to %1</source>
      <translation>eine Zahl bis %1</translation>
    </message>
    <message>
      <source>%1 (%2): ok</source>
      <translation>%1 (%2): in Ordnung</translation>
    </message>
    <message>
      <source>%1 (%2): not loaded: %3 before it fails</source>
      <translation>%1 (%2): nicht geladen: %3 davor ist fehlerhaft</translation>
    </message>
    <message>
      <source>%1 (%2): %3</source>
      <translation>%1 (%2): %3</translation>
    </message>
    <message>
      <source>%1=%2 (accepted: %3)</source>
      <translation>%1=%2 (zulässig: %3)</translation>
    </message>
    <message>
      <source>%1 missing (accepted: %2)</source>
      <translation>%1 fehlt (zulässig: %2)</translation>
    </message>
    <message>
      <source>1 to %1 characters</source>
      <translation>1 bis %1 Zeichen</translation>
    </message>
    <message>
      <source>any number but %1</source>
      <translation>jede Zahl außer %1</translation>
    </message>
    <message>
      <source>VIAL_X_NUM times VIAL_Y_NUM at most %1</source>
      <translation>VIAL_X_NUM mal VIAL_Y_NUM höchstens %1</translation>
    </message>
    <message>
      <source>a number</source>
      <translation>eine Zahl</translation>
    </message>
    <message>
      <source>IP address, part %1 of %2</source>
      <translation>IP-Adresse, Teil %1 von %2</translation>
    </message>
    <message>
      <source>Instrument type setup</source>
      <translation>Einrichtung des Gerätetyps</translation>
    </message>
    <message>
      <source>Autosampler setup</source>
      <translation>Einrichtung des Autosamplers</translation>
    </message>
    <message>
      <source>Prohibited mass %1</source>
      <translation>Gesperrte Masse %1</translation>
    </message>
    <message>
      <source>Waiting</source>
      <translation>Warten</translation>
    </message>
    <message>
      <source>OK</source>
      <translation>OK</translation>
    </message>
    <message>
      <source>Cancel</source>
      <translation>Abbrechen</translation>
    </message>
    <message>
      <source>Help</source>
      <translation>Hilfe</translation>
    </message>
    <message>
      <source>Error</source>
      <translation>Fehler</translation>
    </message>
    <message>
      <source>Valid GPIB address is an integral number from 0 to 29.</source>
      <translation>Eine gültige GPIB-Adresse ist eine ganze Zahl von 0 bis 29.</translation>
    </message>
    <message>
      <source>Would you like to select the QC Mode file opened in the QC Configuration?</source>
      <translation>Möchten Sie die in der QC-Konfiguration geöffnete QC-Modusdatei auswählen?</translation>
    </message>
    <message>
      <source>Prohibited mass is duplicated. This setting is invalid.</source>
      <translation>Eine gesperrte Masse ist doppelt angegeben. Diese Einstellung ist ungültig.</translation>
    </message>
    <message>
      <source>QC configuration changes must be implemented with caution as it affects the other QC related parameters. Continue?</source>
      <translation>Änderungen der QC-Konfiguration sind mit Vorsicht vorzunehmen, da sie die anderen QC-bezogenen Parameter beeinflussen. Fortfahren?</translation>
    </message>
    <message>
      <source>OPAL Application should be selected.</source>
      <translation>Bitte eine OPAL-Anwendung auswählen.</translation>
    </message>
    <message>
      <source>Sample pump selection is reset.</source>
      <translation>Die Auswahl der Probenpumpe wurde zurückgesetzt.</translation>
    </message>
    <message>
      <source>Selected QC Mode file is invalid.</source>
      <translation>Die ausgewählte QC-Modusdatei ist ungültig.</translation>
    </message>
    <message>
      <source>Could not execute QC Configuration. Check the current QC Mode file is valid.</source>
      <translation>Die QC-Konfiguration konnte nicht ausgeführt werden. Prüfen Sie, ob die aktuelle QC-Modusdatei gültig ist.</translation>
    </message>
    <message>
      <source>Could not get OPAL Standard Application.</source>
      <translation>Die OPAL-Standardanwendung konnte nicht ermittelt werden.</translation>
    </message>
    <message>
      <source>Could not get OPAL Application Name. - </source>
      <translation>Der Name der OPAL-Anwendung konnte nicht ermittelt werden. - </translation>
    </message>
    <message>
      <source>Could not find previously selected OPAL Application.</source>
      <translation>Die zuvor ausgewählte OPAL-Anwendung wurde nicht gefunden.</translation>
    </message>
    <message>
      <source>Could not execute Toolbar Configuration.</source>
      <translation>Die Symbolleisten-Konfiguration konnte nicht ausgeführt werden.</translation>
    </message>
    <message>
      <source>None</source>
      <translation>Keine</translation>
    </message>
    <message>
      <source>Peristaltic Pump</source>
      <translation>Peristaltikpumpe</translation>
    </message>
    <message>
      <source>ICP-MS Configuration</source>
      <translation>ICP-MS-Konfiguration</translation>
    </message>
    <message>
      <source>Offline Instrument</source>
      <translation>Offline-Gerät</translation>
    </message>
    <message>
      <source>ICP-MS Address:</source>
      <translation>ICP-MS-Adresse:</translation>
    </message>
    <message>
      <source>Remote Start</source>
      <translation>Fernstart</translation>
    </message>
    <message>
      <source>Don't Use</source>
      <translation>Nicht verwenden</translation>
    </message>
    <message>
      <source>Wait for Ready Signal</source>
      <translation>Auf Bereitschaftssignal warten</translation>
    </message>
    <message>
      <source>Sample Introduction</source>
      <translation>Probeneinführung</translation>
    </message>
    <message>
      <source>Type:</source>
      <translation>Typ:</translation>
    </message>
    <message>
      <source>Autosampler:</source>
      <translation>Autosampler:</translation>
    </message>
    <message>
      <source>Prohibited Masses</source>
      <translation>Gesperrte Massen</translation>
    </message>
    <message>
      <source>Reset to Default</source>
      <translation>Auf Standard zurücksetzen</translation>
    </message>
    <message>
      <source>EM Protection</source>
      <translation>EM-Schutz</translation>
    </message>
    <message>
      <source>Auto setting of integ time in analog mode</source>
      <translation>Integrationszeit im Analogmodus automatisch setzen</translation>
    </message>
    <message>
      <source>Save</source>
      <translation>Speichern</translation>
    </message>
    <message>
      <source>ETV</source>
      <translation>ETV</translation>
    </message>
    <message>
      <source>Laser Ablation</source>
      <translation>Laserablation</translation>
    </message>
    <message>
      <source>Setup...</source>
      <translation>Einrichten...</translation>
    </message>
    <message>
      <source>QC Mode</source>
      <translation>QC-Modus</translation>
    </message>
    <message>
      <source>Mode:</source>
      <translation>Modus:</translation>
    </message>
    <message>
      <source>Browse...</source>
      <translation>Durchsuchen...</translation>
    </message>
    <message>
      <source>Advanced QC...</source>
      <translation>Erweiterte QC...</translation>
    </message>
    <message>
      <source>SC Cooling</source>
      <translation>SC-Kühlung</translation>
    </message>
    <message>
      <source>Sample Pump</source>
      <translation>Probenpumpe</translation>
    </message>
    <message>
      <source>Dead Time Calibration</source>
      <translation>Totzeitkalibrierung</translation>
    </message>
    <message>
      <source>Use Dead Time Calibration</source>
      <translation>Totzeitkalibrierung verwenden</translation>
    </message>
    <message>
      <source>Configure Toolbar...</source>
      <translation>Symbolleiste konfigurieren...</translation>
    </message>
    <message>
      <source>Miscellaneous...</source>
      <translation>Sonstiges...</translation>
    </message>
    <message>
      <source>GPIB</source>
      <translation>GPIB</translation>
    </message>
    <message>
      <source>LAN</source>
      <translation>LAN</translation>
    </message>
    <message>
      <source>IP Address:</source>
      <translation>IP-Adresse:</translation>
    </message>
    <message>
      <source>OPAL</source>
      <translation>OPAL</translation>
    </message>
    <message>
      <source>DSS</source>
      <translation>DSS</translation>
    </message>
    <message>
      <source>OPAL Application:</source>
      <translation>OPAL-Anwendung:</translation>
    </message>
    <message>
      <source>IP Address setting is invalid.</source>
      <translation>Die Einstellung der IP-Adresse ist ungültig.</translation>
    </message>
    <message>
      <source>Security</source>
      <translation>Sicherheit</translation>
    </message>
    <message>
      <source>LC/GC/Laser Ablation</source>
      <translation>LC/GC/Laserablation</translation>
    </message>
    <message>
      <source>Not Wait in 2nd or Later Replicate</source>
      <translation>Ab der 2. Wiederholung nicht warten</translation>
    </message>
    <message>
      <source>Control from LC/GC Data System</source>
      <translation>Steuerung durch LC/GC-Datensystem</translation>
    </message>
    <message>
      <source>Instrument#</source>
      <translation>Geräte-Nr.</translation>
    </message>
    <message>
      <source>Must specify tray type.</source>
      <translation>Der Tray-Typ muss angegeben werden.</translation>
    </message>
    <message>
      <source>Must specify Rack ID.</source>
      <translation>Die Rack-ID muss angegeben werden.</translation>
    </message>
    <message>
      <source>Invalid rack is specified for the current tray type.
Width of the rack might be wrong.</source>
      <translation>Für den aktuellen Tray-Typ ist ein ungültiges Rack angegeben.
Die Breite des Racks ist möglicherweise falsch.</translation>
    </message>
    <message>
      <source>Discrete Sampling</source>
      <translation>Diskrete Probenahme</translation>
    </message>
    <message>
      <source>Invalid rack is specified for the current tray type.
Length of the rack might be wrong.</source>
      <translation>Für den aktuellen Tray-Typ ist ein ungültiges Rack angegeben.
Die Länge des Racks ist möglicherweise falsch.</translation>
    </message>
    <message>
      <source>Always output analysis reports to printer</source>
      <translation>Analysenberichte immer drucken</translation>
    </message>
    <message>
      <source>VLT Integration</source>
      <translation>VLT-Integration</translation>
    </message>
    <message>
      <source>VLT Path:</source>
      <translation>VLT-Pfad:</translation>
    </message>
    <message>
      <source>Waiting for the program started from this window to end...</source>
      <translation>Warten auf das Ende des aus diesem Fenster gestarteten Programms...</translation>
    </message>
    <message>
      <source>ASX500 Configuration</source>
      <translation>ASX500-Konfiguration</translation>
    </message>
    <message>
      <source>ASX100 Configuration</source>
      <translation>ASX100-Konfiguration</translation>
    </message>
    <message>
      <source>ASX500 for ETV Configuration</source>
      <translation>Konfiguration ASX500 für ETV</translation>
    </message>
    <message>
      <source>KLR-8 Configuration</source>
      <translation>KLR-8-Konfiguration</translation>
    </message>
    <message>
      <source>COM Port for ALS:</source>
      <translation>COM-Port für ALS:</translation>
    </message>
    <message>
      <source>Racks</source>
      <translation>Racks</translation>
    </message>
    <message>
      <source>Rack ID 1:</source>
      <translation>Rack-ID 1:</translation>
    </message>
    <message>
      <source>Rack ID 2:</source>
      <translation>Rack-ID 2:</translation>
    </message>
    <message>
      <source>Rack ID 3:</source>
      <translation>Rack-ID 3:</translation>
    </message>
    <message>
      <source>Rack ID 4:</source>
      <translation>Rack-ID 4:</translation>
    </message>
    <message>
      <source>Rack ID 5:</source>
      <translation>Rack-ID 5:</translation>
    </message>
    <message>
      <source>Rack ID 6:</source>
      <translation>Rack-ID 6:</translation>
    </message>
    <message>
      <source>Rack ID 7:</source>
      <translation>Rack-ID 7:</translation>
    </message>
    <message>
      <source>Rack ID 8:</source>
      <translation>Rack-ID 8:</translation>
    </message>
    <message>
      <source>Miscellaneous</source>
      <translation>Sonstiges</translation>
    </message>
    <message>
      <source>Hardware Options</source>
      <translation>Hardware-Optionen</translation>
    </message>
    <message>
      <source>Plasma Ignition Mode</source>
      <translation>Plasmazündmodus</translation>
    </message>
    <message>
      <source>Sample Type:</source>
      <translation>Probenart:</translation>
    </message>
    <message>
      <source>Aqueous Solution</source>
      <translation>Wässrige Lösung</translation>
    </message>
    <message>
      <source>Organic Solvent</source>
      <translation>Organisches Lösungsmittel</translation>
    </message>
    <message>
      <source>Post Analysis Peri Pump Rotation</source>
      <translation>Peristaltikpumpe nach der Analyse drehen</translation>
    </message>
    <message>
      <source>Enable Post Rotation</source>
      <translation>Nachrotation aktivieren</translation>
    </message>
    <message>
      <source>Remote Shutdown</source>
      <translation>Fernabschaltung</translation>
    </message>
    <message>
      <source>Standard</source>
      <translation>Standard</translation>
    </message>
    <message>
      <source>Corvane LC</source>
      <translation>Corvane LC</translation>
    </message>
    <message>
      <source>Maintenance Log</source>
      <translation>Wartungsprotokoll</translation>
    </message>
    <message>
      <source>Record Log every Tuning Report Generation</source>
      <translation>Bei jedem Tuning-Bericht ins Protokoll schreiben</translation>
    </message>
    <message>
      <source>Process during ALS Probe Move</source>
      <translation>Während der Bewegung der ALS-Probennadel</translation>
    </message>
    <message>
      <source>Stop Peri Pump Rotation</source>
      <translation>Peristaltikpumpe stoppen</translation>
    </message>
    <message>
      <source>Change Carrier Gas Flow Rate</source>
      <translation>Trägergasfluss ändern</translation>
    </message>
    <message>
      <source>Flow Rate:</source>
      <translation>Durchflussrate:</translation>
    </message>
    <message>
      <source>Stabilization Time:</source>
      <translation>Stabilisierungszeit:</translation>
    </message>
    <message>
      <source>OPAL External Pump</source>
      <translation>Externe OPAL-Pumpe</translation>
    </message>
    <message>
      <source>Please connect OPAL External Pump to OPAL COM2 Port.</source>
      <translation>Bitte die externe OPAL-Pumpe an den OPAL-Port COM2 anschließen.</translation>
    </message>
    <message>
      <source>ASX500 for ETV</source>
      <translation>ASX500 für ETV</translation>
    </message>
    <message>
      <source>ASX500 for FI</source>
      <translation>ASX500 für FI</translation>
    </message>
    <message>
      <source>Exit Plasmasuite.</source>
      <translation>Bitte Plasmasuite beenden.</translation>
    </message>
    <message>
      <source>V-AS Configuration</source>
      <translation>V-AS-Konfiguration</translation>
    </message>
    <message>
      <source>Sample Tray:</source>
      <translation>Probentray:</translation>
    </message>
    <message>
      <source>Sampling Depth(0.125mm Step)</source>
      <translation>Probenahmetiefe (Schritte von 0,125 mm)</translation>
    </message>
    <message>
      <source>Rinse Port:</source>
      <translation>Spülport:</translation>
    </message>
    <message>
      <source>Tray/Single:</source>
      <translation>Tray/Einzeln:</translation>
    </message>
    <message>
      <source>STD/Rinse:</source>
      <translation>STD/Spülen:</translation>
    </message>
    <message>
      <source>Single Sample</source>
      <translation>Einzelprobe</translation>
    </message>
    <message>
      <source>89 Samples</source>
      <translation>89 Proben</translation>
    </message>
    <message>
      <source>53 Samples</source>
      <translation>53 Proben</translation>
    </message>
    <message>
      <source>18 Samples</source>
      <translation>18 Proben</translation>
    </message>
    <message>
      <source>Enable ESC Mode</source>
      <translation>ESC-Modus aktivieren</translation>
    </message>
    <message>
      <source>Please connect ASX500 to OPAL COM1 Port.</source>
      <translation>Bitte den ASX500 an den OPAL-Port COM1 anschließen.</translation>
    </message>
    <message>
      <source>Please connect V-AS to OPAL COM1 Port.</source>
      <translation>Bitte den V-AS an den OPAL-Port COM1 anschließen.</translation>
    </message>
    <message>
      <source>Please connect KLR-8 to OPAL COM1 Port.</source>
      <translation>Bitte den KLR-8 an den OPAL-Port COM1 anschließen.</translation>
    </message>
    <message>
      <source>Must specify the folder on VLT server.</source>
      <translation>Der Ordner auf dem VLT-Server muss angegeben werden.</translation>
    </message>
    <message>
      <source>Data system folder:</source>
      <translation>Ordner des Datensystems:</translation>
    </message>
    <message>
      <source>Choose the folder the data system is installed in.</source>
      <translation>Wählen Sie den Ordner, in dem das Datensystem installiert ist.</translation>
    </message>
    <message>
      <source>COM &amp;Port for ALS:</source>
      <translation>COM-&amp;Port für ALS:</translation>
    </message>
    <message>
      <source>&amp;Tray Type:</source>
      <translation>&amp;Tray-Typ:</translation>
    </message>
    <message>
      <source>&amp;Configure Tray...</source>
      <translation>Tray &amp;konfigurieren...</translation>
    </message>
    <message>
      <source>Rack ID </source>
      <translation>Rack-ID </translation>
    </message>
    <message>
      <source>C&amp;onfigure Rack...</source>
      <translation>&amp;Rack konfigurieren...</translation>
    </message>
    <message>
      <source>&amp;Help</source>
      <translation>&amp;Hilfe</translation>
    </message>
    <message>
      <source>User name:</source>
      <translation>Benutzername:</translation>
    </message>
    <message>
      <source>Password:</source>
      <translation>Passwort:</translation>
    </message>
    <message>
      <source>Checking the user name and password...</source>
      <translation>Benutzername und Passwort werden geprüft...</translation>
    </message>
    <message>
      <source>Custom Trays</source>
      <translation>Benutzerdefinierte Trays</translation>
    </message>
    <message>
      <source>Custom Racks</source>
      <translation>Benutzerdefinierte Racks</translation>
    </message>
    <message>
      <source>COM port for V-AS:</source>
      <translation>COM-Port für V-AS:</translation>
    </message>
    <message>
      <source>sec</source>
      <translation>s</translation>
    </message>
    <message>
      <source>&amp;Trays:</source>
      <translation>&amp;Trays:</translation>
    </message>
    <message>
      <source>&amp;Racks:</source>
      <translation>&amp;Racks:</translation>
    </message>
    <message>
      <source>&amp;New</source>
      <translation>&amp;Neu</translation>
    </message>
    <message>
      <source>Co&amp;py</source>
      <translation>&amp;Kopieren</translation>
    </message>
    <message>
      <source>&amp;Delete</source>
      <translation>&amp;Löschen</translation>
    </message>
    <message>
      <source>(none)</source>
      <translation>(keines)</translation>
    </message>
    <message>
      <source>(missing)</source>
      <translation>(fehlt)</translation>
    </message>
    <message>
      <source>The loader accepts this entry.</source>
      <translation>Das Ladeprogramm akzeptiert diesen Eintrag.</translation>
    </message>
    <message>
      <source>No custom tray is defined.</source>
      <translation>Es ist kein benutzerdefiniertes Tray definiert.</translation>
    </message>
    <message>
      <source>Open File</source>
      <translation>Datei öffnen</translation>
    </message>
    <message>
      <source>Save File</source>
      <translation>Datei speichern</translation>
    </message>
    <message>
      <source>&amp;User name:</source>
      <translation>&amp;Benutzername:</translation>
    </message>
    <message>
      <source>&amp;Password:</source>
      <translation>&amp;Passwort:</translation>
    </message>
    <message>
      <source>&amp;Aqueous Solution</source>
      <translation>&amp;Wässrige Lösung</translation>
    </message>
    <message>
      <source>&amp;Autosampler:</source>
      <translation>A&amp;utosampler:</translation>
    </message>
    <message>
      <source>&amp;Browse...</source>
      <translation>&amp;Durchsuchen...</translation>
    </message>
    <message>
      <source>&amp;Configure Toolbar...</source>
      <translation>Symbolleiste &amp;konfigurieren...</translation>
    </message>
    <message>
      <source>&amp;Data system folder:</source>
      <translation>Ordner des Daten&amp;systems:</translation>
    </message>
    <message>
      <source>&amp;Enable ESC Mode</source>
      <translation>ESC-Modus &amp;aktivieren</translation>
    </message>
    <message>
      <source>&amp;Enable Post Rotation</source>
      <translation>Nachrotation &amp;aktivieren</translation>
    </message>
    <message>
      <source>&amp;Flow Rate:</source>
      <translation>Durchfl&amp;ussrate:</translation>
    </message>
    <message>
      <source>&amp;Instrument#</source>
      <translation>G&amp;eräte-Nr.</translation>
    </message>
    <message>
      <source>&amp;Miscellaneous...</source>
      <translation>&amp;Sonstiges...</translation>
    </message>
    <message>
      <source>&amp;OPAL Application:</source>
      <translation>&amp;OPAL-Anwendung:</translation>
    </message>
    <message>
      <source>&amp;Record Log every Tuning Report Generation</source>
      <translation>Bei jedem Tuning-Bericht ins Protokoll sch&amp;reiben</translation>
    </message>
    <message>
      <source>&amp;Reset to Default</source>
      <translation>Auf Standard &amp;zurücksetzen</translation>
    </message>
    <message>
      <source>&amp;Rinse Port:</source>
      <translation>&amp;Spülport:</translation>
    </message>
    <message>
      <source>&amp;Save</source>
      <translation>S&amp;peichern</translation>
    </message>
    <message>
      <source>&amp;Stop Peri Pump Rotation</source>
      <translation>Peristaltikpumpe &amp;stoppen</translation>
    </message>
    <message>
      <source>&amp;Tray/Single:</source>
      <translation>&amp;Tray/Einzeln:</translation>
    </message>
    <message>
      <source>&amp;Use Dead Time Calibration</source>
      <translation>&amp;Totzeitkalibrierung verwenden</translation>
    </message>
    <message>
      <source>&amp;VLT Integration</source>
      <translation>&amp;VLT-Integration</translation>
    </message>
    <message>
      <source>&amp;Wait for Ready Signal</source>
      <translation>Auf Bereitschaftssignal &amp;warten</translation>
    </message>
    <message>
      <source>Advanced &amp;QC...</source>
      <translation>Erweiterte &amp;QC...</translation>
    </message>
    <message>
      <source>Always ou&amp;tput analysis reports to printer</source>
      <translation>Analysen&amp;berichte immer drucken</translation>
    </message>
    <message>
      <source>Auto setting of integ time in ana&amp;log mode</source>
      <translation>Integrationszeit im Ana&amp;logmodus automatisch setzen</translation>
    </message>
    <message>
      <source>C&amp;hange Carrier Gas Flow Rate</source>
      <translation>Trägergasfluss ä&amp;ndern</translation>
    </message>
    <message>
      <source>COM &amp;port for V-AS:</source>
      <translation>COM-P&amp;ort für V-AS:</translation>
    </message>
    <message>
      <source>Control from LC/&amp;GC Data System</source>
      <translation>Steuerung durch LC/&amp;GC-Datensystem</translation>
    </message>
    <message>
      <source>Corvane &amp;LC</source>
      <translation>Corvane &amp;LC</translation>
    </message>
    <message>
      <source>Do&amp;n't Use</source>
      <translation>&amp;Nicht verwenden</translation>
    </message>
    <message>
      <source>ICP-MS A&amp;ddress:</source>
      <translation>ICP-MS-&amp;Adresse:</translation>
    </message>
    <message>
      <source>IP A&amp;ddress:</source>
      <translation>IP-&amp;Adresse:</translation>
    </message>
    <message>
      <source>Not Wait in &amp;2nd or Later Replicate</source>
      <translation>Ab der &amp;2. Wiederholung nicht warten</translation>
    </message>
    <message>
      <source>O&amp;ffline Instrument</source>
      <translation>O&amp;ffline-Gerät</translation>
    </message>
    <message>
      <source>OPAL E&amp;xternal Pump</source>
      <translation>E&amp;xterne OPAL-Pumpe</translation>
    </message>
    <message>
      <source>Or&amp;ganic Solvent</source>
      <translation>Or&amp;ganisches Lösungsmittel</translation>
    </message>
    <message>
      <source>Pro&amp;hibited Masses</source>
      <translation>Gesperrte &amp;Massen</translation>
    </message>
    <message>
      <source>S&amp;C Cooling</source>
      <translation>S&amp;C-Kühlung</translation>
    </message>
    <message>
      <source>S&amp;ample Tray:</source>
      <translation>&amp;Probentray:</translation>
    </message>
    <message>
      <source>S&amp;ecurity</source>
      <translation>Sicher&amp;heit</translation>
    </message>
    <message>
      <source>Setu&amp;p...</source>
      <translation>Einri&amp;chten...</translation>
    </message>
    <message>
      <source>ST&amp;D/Rinse:</source>
      <translation>ST&amp;D/Spülen:</translation>
    </message>
    <message>
      <source>Sam&amp;ple Pump</source>
      <translation>&amp;Probenpumpe</translation>
    </message>
    <message>
      <source>Set&amp;up...</source>
      <translation>Ein&amp;richten...</translation>
    </message>
    <message>
      <source>Sta&amp;bilization Time:</source>
      <translation>Sta&amp;bilisierungszeit:</translation>
    </message>
    <message>
      <source>Stan&amp;dard</source>
      <translation>Stan&amp;dard</translation>
    </message>
    <message>
      <source>T&amp;ype:</source>
      <translation>&amp;Typ:</translation>
    </message>
  </context>
</TS>
