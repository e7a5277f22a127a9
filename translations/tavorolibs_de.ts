<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Tavoro::BizModel::Device</name>
    <message>
        <source>Interface %1/%2/%3</source>
        <translation>Schnittstelle %1/%2/%3</translation>
    </message>
    <message>
        <source>Screen %1 of type %2</source>
        <translation>Screen %1 vom Typ %2</translation>
    </message>
    <message>
        <source>Layer %1 of type %2 in scene %3 on screen %4 of type %5</source>
        <translation>Layer %1 vom Typ %2 in Szene %3 auf Screen %4 vom Typ %5</translation>
    </message>
    <message>
        <source>File %1 of type %2</source>
        <translation>Datei %1 vom Typ %2</translation>
    </message>
    <message>
        <source>%1 occurs twice.</source>
        <translation>%1 kommt zweimal vor.</translation>
    </message>
    <message>
        <source>%1 has the output %2, which the device does not have.</source>
        <translation>%1 hat den Ausgang %2, den das Gerät nicht hat.</translation>
    </message>
    <message>
        <source>%1: the device does not have the screen.</source>
        <translation>%1: Das Gerät hat diesen Screen nicht.</translation>
    </message>
    <message>
        <source>And %1 more.</source>
        <translation>Und %1 weitere.</translation>
    </message>
    <message>
        <source>The device has no slot %1</source>
        <translation>Das Gerät hat keinen Steckplatz %1</translation>
    </message>
    <message>
        <source>Subcard %1</source>
        <translation>Karte %1</translation>
    </message>
    <message>
        <source>Power supply %1</source>
        <translation>Netzteil %1</translation>
    </message>
    <message>
        <source>Device group %1</source>
        <translation>Gerätegruppe %1</translation>
    </message>
</context>
<context>
    <name>Tavoro::BizModel::DeviceList</name>
    <message>
        <source>%1 of the device %2 %3 %4</source>
        <translation>%1 des Geräts %2 %3 %4</translation>
    </message>
    <message>
        <source>A store of devices is open already.</source>
        <translation>Ein Gerätespeicher ist bereits geöffnet.</translation>
    </message>
    <message>
        <source>The file %1 is not a store of devices.</source>
        <translation>Die Datei %1 ist kein Gerätespeicher.</translation>
    </message>
    <message>
        <source>The file %1 was written by a later version.</source>
        <translation>Die Datei %1 wurde von einer neueren Version geschrieben.</translation>
    </message>
    <message>
        <source>The file was written by an earlier version, which this one cannot read.</source>
        <translation>Die Datei wurde von einer früheren Version geschrieben, die diese nicht lesen kann.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Control::ControlHelper</name>
    <message>
        <source> error json is : </source>
        <translation> fehlerhaftes JSON: </translation>
    </message>
    <message>
        <source>Decode json failed: </source>
        <translation>JSON konnte nicht dekodiert werden: </translation>
    </message>
    <message>
        <source>Device is null.</source>
        <translation>Das Gerät fehlt.</translation>
    </message>
    <message>
        <source>device detail information</source>
        <translation>Gerätedetails</translation>
    </message>
    <message>
        <source>device general information</source>
        <translation>Allgemeine Angaben des Geräts</translation>
    </message>
    <message>
        <source>device card mode information</source>
        <translation>Kartenmodus des Geräts</translation>
    </message>
    <message>
        <source>device power information</source>
        <translation>Stromversorgung des Geräts</translation>
    </message>
    <message>
        <source>device genlock config information</source>
        <translation>Genlock-Konfiguration des Geräts</translation>
    </message>
    <message>
        <source>device genlock status information</source>
        <translation>Genlock-Status des Geräts</translation>
    </message>
    <message>
        <source>device net config information</source>
        <translation>Netzwerkkonfiguration des Geräts</translation>
    </message>
    <message>
        <source>device swap status information</source>
        <translation>Swap-Status des Geräts</translation>
    </message>
    <message>
        <source>device test pattern information</source>
        <translation>Testbild des Geräts</translation>
    </message>
    <message>
        <source>device Dynamic Rang Conversion information</source>
        <translation>Konvertierung des Dynamikumfangs</translation>
    </message>
    <message>
        <source>device group information</source>
        <translation>Gerätegruppen</translation>
    </message>
    <message>
        <source>input backup information</source>
        <translation>Ersatzeingänge</translation>
    </message>
    <message>
        <source>device backup information</source>
        <translation>Ersatzgerät</translation>
    </message>
    <message>
        <source>Load to PGM</source>
        <translation>Auf PGM laden</translation>
    </message>
    <message>
        <source>interface detail information</source>
        <translation>Schnittstellendetails</translation>
    </message>
    <message>
        <source>interface general information</source>
        <translation>Allgemeine Angaben der Schnittstelle</translation>
    </message>
    <message>
        <source>interface test pattern information</source>
        <translation>Testbild der Schnittstelle</translation>
    </message>
    <message>
        <source>interface preset timing information</source>
        <translation>Angefordertes Timing der Schnittstelle</translation>
    </message>
    <message>
        <source>interface actual timing information</source>
        <translation>Aktuelles Timing der Schnittstelle</translation>
    </message>
    <message>
        <source>interface image quality information</source>
        <translation>Bildqualität der Schnittstelle</translation>
    </message>
    <message>
        <source>interface crop information</source>
        <translation>Beschnitt der Schnittstelle</translation>
    </message>
    <message>
        <source>interface cutout general information</source>
        <translation>Freistellung der Schnittstelle</translation>
    </message>
    <message>
        <source>interface HDCP information</source>
        <translation>HDCP der Schnittstelle</translation>
    </message>
    <message>
        <source>interface colorDepth information</source>
        <translation>Farbtiefe der Schnittstelle</translation>
    </message>
    <message>
        <source>interface colorSpace information</source>
        <translation>Farbraum der Schnittstelle</translation>
    </message>
    <message>
        <source>interface colorRange information</source>
        <translation>Farbbereich der Schnittstelle</translation>
    </message>
    <message>
        <source>interface formatMapping information</source>
        <translation>Formatzuordnung der Schnittstelle</translation>
    </message>
    <message>
        <source>interface HDR information</source>
        <translation>HDR der Schnittstelle</translation>
    </message>
    <message>
        <source>screen detail information</source>
        <translation>Screen-Details</translation>
    </message>
    <message>
        <source>screen enable information</source>
        <translation>Aktivierung des Screens</translation>
    </message>
    <message>
        <source>screen general information</source>
        <translation>Allgemeine Angaben des Screens</translation>
    </message>
    <message>
        <source>screen background color information</source>
        <translation>Hintergrundfarbe des Screens</translation>
    </message>
    <message>
        <source>screen layout information</source>
        <translation>Anordnung des Screens</translation>
    </message>
    <message>
        <source>screen physical size information</source>
        <translation>Physische Größe des Screens</translation>
    </message>
    <message>
        <source>screen pgm edit information</source>
        <translation>PGM-Bearbeitung des Screens</translation>
    </message>
    <message>
        <source>screen selected information</source>
        <translation>Auswahl des Screens</translation>
    </message>
    <message>
        <source>screen image quality information</source>
        <translation>Bildqualität des Screens</translation>
    </message>
    <message>
        <source>screen freeze information</source>
        <translation>Standbild des Screens</translation>
    </message>
    <message>
        <source>screen FTB information</source>
        <translation>Schwarzblende des Screens</translation>
    </message>
    <message>
        <source>screen test pattern information</source>
        <translation>Testbild des Screens</translation>
    </message>
    <message>
        <source>screen switch effect information</source>
        <translation>Übergang des Screens</translation>
    </message>
    <message>
        <source>screen tbar information</source>
        <translation>T-Bar des Screens</translation>
    </message>
    <message>
        <source>screen take information</source>
        <translation>Take des Screens</translation>
    </message>
    <message>
        <source>screen delete information</source>
        <translation>Löschen des Screens</translation>
    </message>
    <message>
        <source>screen HDR information</source>
        <translation>HDR des Screens</translation>
    </message>
    <message>
        <source>screen backup information</source>
        <translation>Ersatz des Screens</translation>
    </message>
    <message>
        <source>layer detail information</source>
        <translation>Layer-Details</translation>
    </message>
    <message>
        <source>layer enable information</source>
        <translation>Aktivierung des Layers</translation>
    </message>
    <message>
        <source>layer z order information</source>
        <translation>Stapelfolge der Layer</translation>
    </message>
    <message>
        <source>layer general information</source>
        <translation>Allgemeine Angaben des Layers</translation>
    </message>
    <message>
        <source>layer source information</source>
        <translation>Quelle des Layers</translation>
    </message>
    <message>
        <source>layer window information</source>
        <translation>Fenster des Layers</translation>
    </message>
    <message>
        <source>layer mask information</source>
        <translation>Maske des Layers</translation>
    </message>
    <message>
        <source>layer color information</source>
        <translation>Farbe des Layers</translation>
    </message>
    <message>
        <source>layer opacity information</source>
        <translation>Deckkraft des Layers</translation>
    </message>
    <message>
        <source>layer image quality information</source>
        <translation>Bildqualität des Layers</translation>
    </message>
    <message>
        <source>layer shadow information</source>
        <translation>Schatten des Layers</translation>
    </message>
    <message>
        <source>layer border information</source>
        <translation>Rahmen des Layers</translation>
    </message>
    <message>
        <source>layer selected information</source>
        <translation>Auswahl des Layers</translation>
    </message>
    <message>
        <source>layer UMD information</source>
        <translation>UMD des Layers</translation>
    </message>
    <message>
        <source>layer remove information</source>
        <translation>Entfernen des Layers</translation>
    </message>
    <message>
        <source>layer Cut &amp; fill information</source>
        <translation>Cut &amp; Fill des Layers</translation>
    </message>
    <message>
        <source>preset apply information</source>
        <translation>Anwenden des Presets</translation>
    </message>
    <message>
        <source>ProjectFile apply information</source>
        <translation>Anwenden der Projektdatei</translation>
    </message>
    <message>
        <source>file detail information</source>
        <translation>Dateidetails</translation>
    </message>
    <message>
        <source>file delete information</source>
        <translation>Löschen der Datei</translation>
    </message>
    <message>
        <source>file general information</source>
        <translation>Allgemeine Angaben der Datei</translation>
    </message>
    <message>
        <source>file import information</source>
        <translation>Import der Datei</translation>
    </message>
    <message>
        <source>file export information</source>
        <translation>Export der Datei</translation>
    </message>
    <message>
        <source>file transfer progress information</source>
        <translation>Fortschritt der Dateiübertragung</translation>
    </message>
    <message>
        <source>file create image file information</source>
        <translation>Erstellen der Bilddatei</translation>
    </message>
    <message>
        <source>file create preset file information</source>
        <translation>Erstellen der Preset-Datei</translation>
    </message>
    <message>
        <source>file create project file information</source>
        <translation>Erstellen der Projektdatei</translation>
    </message>
    <message>
        <source>file create log file information</source>
        <translation>Erstellen der Protokolldatei</translation>
    </message>
    <message>
        <source>shutdown or restart information</source>
        <translation>Herunterfahren oder Neustart</translation>
    </message>
    <message>
        <source>factory reset information</source>
        <translation>Zurücksetzen auf Werkseinstellungen</translation>
    </message>
    <message>
        <source>save information</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>source loss statics information</source>
        <translation>Zählung der Signalverluste</translation>
    </message>
    <message>
        <source>source loss statics result information</source>
        <translation>Ergebnis der Zählung der Signalverluste</translation>
    </message>
    <message>
        <source>cutout position information</source>
        <translation>Position der Freistellung</translation>
    </message>
    <message>
        <source>cutout RGB information</source>
        <translation>RGB-Wert der Freistellung</translation>
    </message>
    <message>
        <source>upgrade detail information</source>
        <translation>Details der Aktualisierung</translation>
    </message>
    <message>
        <source>upgrade percent information</source>
        <translation>Fortschritt der Aktualisierung</translation>
    </message>
    <message>
        <source>device version information</source>
        <translation>Versionen des Geräts</translation>
    </message>
    <message>
        <source>self check detail information</source>
        <translation>Details der Selbstprüfung</translation>
    </message>
    <message>
        <source>set device time information</source>
        <translation>Uhrzeit des Geräts</translation>
    </message>
    <message>
        <source>device file load progress information</source>
        <translation>Ladefortschritt der Gerätedateien</translation>
    </message>
    <message>
        <source>The current device is already under control</source>
        <translation>Das Gerät wird bereits gesteuert</translation>
    </message>
    <message>
        <source>software error: Channel is not initialized</source>
        <translation>Softwarefehler: Kanal ist nicht initialisiert</translation>
    </message>
    <message>
        <source>software error: Channel is connecting</source>
        <translation>Softwarefehler: Kanal verbindet sich gerade</translation>
    </message>
    <message>
        <source>software error: Channel disconnected</source>
        <translation>Softwarefehler: Kanal ist getrennt</translation>
    </message>
    <message>
        <source>software error: Request timed out</source>
        <translation>Softwarefehler: Zeitüberschreitung der Anfrage</translation>
    </message>
    <message>
        <source>software error: Asynchronous request is being executed</source>
        <translation>Softwarefehler: Eine asynchrone Anfrage wird ausgeführt</translation>
    </message>
    <message>
        <source>software error: Sync request is being executed</source>
        <translation>Softwarefehler: Eine synchrone Anfrage wird ausgeführt</translation>
    </message>
    <message>
        <source>software error: Invalid request command</source>
        <translation>Softwarefehler: Ungültige Anfrage</translation>
    </message>
    <message>
        <source>software error: Sending thread is not initialized or not started</source>
        <translation>Softwarefehler: Der Sende-Thread ist nicht initialisiert oder nicht gestartet</translation>
    </message>
    <message>
        <source>protocol error: Invalid register address</source>
        <translation>Protokollfehler: Ungültige Registeradresse</translation>
    </message>
    <message>
        <source>protocol error: Return data is too short</source>
        <translation>Protokollfehler: Die Antwort ist zu kurz</translation>
    </message>
    <message>
        <source>protocol error: Invalid protocol header flag</source>
        <translation>Protokollfehler: Ungültige Kennung im Protokollkopf</translation>
    </message>
    <message>
        <source>protocol error: Invalid checksum index</source>
        <translation>Protokollfehler: Ungültiger Prüfsummenindex</translation>
    </message>
    <message>
        <source>protocol error: Invalid checksum</source>
        <translation>Protokollfehler: Ungültige Prüfsumme</translation>
    </message>
    <message>
        <source>protocol error: Invalid type</source>
        <translation>Protokollfehler: Ungültiger Typ</translation>
    </message>
    <message>
        <source>protocol error: Invalid extended data length</source>
        <translation>Protokollfehler: Ungültige Länge der erweiterten Daten</translation>
    </message>
    <message>
        <source>protocol error: Device response timeout</source>
        <translation>Protokollfehler: Das Gerät antwortet nicht</translation>
    </message>
    <message>
        <source>protocol error: Device response decoding timed out</source>
        <translation>Protokollfehler: Zeitüberschreitung beim Dekodieren der Antwort</translation>
    </message>
    <message>
        <source>hardware error:%1</source>
        <translation>Hardwarefehler:%1</translation>
    </message>
    <message>
        <source>Get %1 failed: %2 .</source>
        <translation>„%1“ konnte nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>Get %1 successfully.</source>
        <translation>„%1“ wurde gelesen.</translation>
    </message>
    <message>
        <source>Set %1 failed: %2 .</source>
        <translation>„%1“ konnte nicht gesetzt werden: %2.</translation>
    </message>
    <message>
        <source>Set %1 successfully.</source>
        <translation>„%1“ wurde gesetzt.</translation>
    </message>
    <message>
        <source>Invalid request command</source>
        <translation>Ungültige Anfrage</translation>
    </message>
    <message>
        <source>invalid device model data</source>
        <translation>ungültige Modelldaten des Geräts</translation>
    </message>
    <message>
        <source>The device is offline</source>
        <translation>Das Gerät ist offline</translation>
    </message>
    <message>
        <source>invalid response command model data</source>
        <translation>ungültige Modelldaten der Antwort</translation>
    </message>
    <message>
        <source>Device data has been updated, please synchronize now.</source>
        <translation>Die Gerätedaten haben sich geändert. Bitte jetzt synchronisieren.</translation>
    </message>
    <message>
        <source>Operation has been cancelled.</source>
        <translation>Der Vorgang wurde abgebrochen.</translation>
    </message>
    <message>
        <source>The device is controlled by others.</source>
        <translation>Das Gerät wird von anderen gesteuert.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Control::DeviceList</name>
    <message>
        <source>Device model is nullptr</source>
        <translation>Das Gerätemodell fehlt</translation>
    </message>
</context>
<context>
    <name>Tavoro::Control::SaveFilePrivate</name>
    <message>
        <source>File open failed. file path: %1</source>
        <translation>Die Datei konnte nicht geöffnet werden. Pfad: %1</translation>
    </message>
</context>
<context>
    <name>Tavoro::Control::SyncDeviceTask</name>
    <message>
        <source>Device not ready.</source>
        <translation>Das Gerät ist nicht bereit.</translation>
    </message>
    <message>
        <source>Device offline</source>
        <translation>Gerät offline</translation>
    </message>
</context>
<context>
    <name>Tavoro::DeviceFiles</name>
    <message>
        <source>the content could not be read (%1)</source>
        <translation>der Inhalt konnte nicht gelesen werden (%1)</translation>
    </message>
    <message>
        <source>the content could not be written (%1)</source>
        <translation>der Inhalt konnte nicht geschrieben werden (%1)</translation>
    </message>
    <message>
        <source>the length of the content is not known</source>
        <translation>die Länge des Inhalts ist nicht bekannt</translation>
    </message>
    <message>
        <source>type and ID of a file are 0 to %1</source>
        <translation>Typ und ID einer Datei sind 0 bis %1</translation>
    </message>
    <message>
        <source>a file has at most %1 bytes</source>
        <translation>eine Datei hat höchstens %1 Bytes</translation>
    </message>
</context>
<context>
    <name>Tavoro::DeviceSession</name>
    <message>
        <source>the clock could not be set (%1)</source>
        <translation>die Uhr konnte nicht gestellt werden (%1)</translation>
    </message>
    <message>
        <source>the details could not be read (%1)</source>
        <translation>die Details konnten nicht gelesen werden (%1)</translation>
    </message>
    <message>
        <source>the device is not ready yet</source>
        <translation>das Gerät ist noch nicht bereit</translation>
    </message>
    <message>
        <source>the interfaces could not be read (%1)</source>
        <translation>die Schnittstellen konnten nicht gelesen werden (%1)</translation>
    </message>
    <message>
        <source>the screens could not be read (%1)</source>
        <translation>die Screens konnten nicht gelesen werden (%1)</translation>
    </message>
    <message>
        <source>the layers could not be read (%1)</source>
        <translation>die Layer konnten nicht gelesen werden (%1)</translation>
    </message>
    <message>
        <source>the list of files could not be read (%1)</source>
        <translation>die Dateiliste konnte nicht gelesen werden (%1)</translation>
    </message>
    <message>
        <source>the content of a file could not be read (%1)</source>
        <translation>der Inhalt einer Datei konnte nicht gelesen werden (%1)</translation>
    </message>
    <message>
        <source>the session is closed</source>
        <translation>die Sitzung ist geschlossen</translation>
    </message>
    <message>
        <source>there is no connection yet</source>
        <translation>es besteht noch keine Verbindung</translation>
    </message>
    <message>
        <source>the device is open already, at %1</source>
        <translation>das Gerät ist bereits geöffnet, unter %1</translation>
    </message>
    <message>
        <source>its channel was stopped</source>
        <translation>sein Kanal wurde gestoppt</translation>
    </message>
    <message>
        <source>%1 is disconnected.</source>
        <translation>%1 ist getrennt.</translation>
    </message>
    <message>
        <source>%1 is disconnected: %2.</source>
        <translation>%1 ist getrennt: %2.</translation>
    </message>
    <message>
        <source>Connecting to %1.</source>
        <translation>Verbindung zu %1 wird hergestellt.</translation>
    </message>
    <message>
        <source>Cannot connect to %1: %2.</source>
        <translation>Keine Verbindung zu %1: %2.</translation>
    </message>
    <message>
        <source>Reading %1.</source>
        <translation>%1 wird gelesen.</translation>
    </message>
    <message>
        <source>Cannot read %1: %2.</source>
        <translation>%1 kann nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>%1 is ready.</source>
        <translation>%1 ist bereit.</translation>
    </message>
    <message>
        <source>%1 is ready, but %2.</source>
        <translation>%1 ist bereit, aber %2.</translation>
    </message>
    <message>
        <source>The connection to %1 is lost.</source>
        <translation>Die Verbindung zu %1 ist unterbrochen.</translation>
    </message>
    <message>
        <source>The connection to %1 is lost: %2.</source>
        <translation>Die Verbindung zu %1 ist unterbrochen: %2.</translation>
    </message>
    <message>
        <source>it failed at %1 percent</source>
        <translation>bei %1 Prozent fehlgeschlagen</translation>
    </message>
    <message>
        <source>the device does not report its progress any more</source>
        <translation>das Gerät meldet seinen Fortschritt nicht mehr</translation>
    </message>
    <message>
        <source>the device continues, but is not followed any more</source>
        <translation>das Gerät arbeitet weiter, wird aber nicht mehr verfolgt</translation>
    </message>
</context>
<context>
    <name>Tavoro::Models::SessionEditHandler</name>
    <message>
        <source>There is no command that writes this value.</source>
        <translation>Kein Befehl schreibt diesen Wert.</translation>
    </message>
    <message>
        <source>The device is not open.</source>
        <translation>Das Gerät ist nicht geöffnet.</translation>
    </message>
    <message>
        <source>The value was written, but could not be read again.</source>
        <translation>Der Wert wurde geschrieben, konnte aber nicht wieder gelesen werden.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Operations</name>
    <message>
        <source>a text is missing</source>
        <translation>ein Text fehlt</translation>
    </message>
    <message>
        <source>argument %1: unexpected &quot;%2&quot;</source>
        <translation>Argument %1: „%2“ unerwartet</translation>
    </message>
    <message>
        <source>a number is missing</source>
        <translation>eine Zahl fehlt</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number</source>
        <translation>„%1“ ist keine Zahl</translation>
    </message>
    <message>
        <source>%1 is not between %2 and %3</source>
        <translation>%1 liegt nicht zwischen %2 und %3</translation>
    </message>
    <message>
        <source>argument %1: %2</source>
        <translation>Argument %1: %2</translation>
    </message>
    <message>
        <source>a record is missing</source>
        <translation>ein Datensatz fehlt</translation>
    </message>
    <message>
        <source>; did you mean &quot;%1&quot;</source>
        <translation>; meinten Sie „%1“</translation>
    </message>
    <message>
        <source>%1 failed.</source>
        <translation>%1 ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>unknown operation &quot;%1&quot;</source>
        <translation>unbekannte Operation „%1“</translation>
    </message>
    <message>
        <source>line %1, column %2: %3</source>
        <translation>Zeile %1, Spalte %2: %3</translation>
    </message>
    <message>
        <source>unknown key &quot;%1&quot;%2; the keys here are: %3</source>
        <translation>unbekannter Schlüssel „%1“%2; die Schlüssel hier sind: %3</translation>
    </message>
    <message>
        <source>%1 would be sent as %2</source>
        <translation>%1 würde als %2 gesendet</translation>
    </message>
    <message>
        <source>; the range is %1 to %2</source>
        <translation>; der Bereich ist %1 bis %2</translation>
    </message>
    <message>
        <source>expected a list [...], found an object</source>
        <translation>Liste [...] erwartet, Objekt gefunden</translation>
    </message>
    <message>
        <source>expected an object {...}, found a list</source>
        <translation>Objekt {...} erwartet, Liste gefunden</translation>
    </message>
    <message>
        <source>missing keys: %1</source>
        <translation>fehlende Schlüssel: %1</translation>
    </message>
    <message>
        <source>Reads the whole state of the device.</source>
        <translation>Liest den gesamten Zustand des Geräts.</translation>
    </message>
    <message>
        <source>Reads the whole state of the device into the model.</source>
        <translation>Liest den gesamten Zustand des Geräts in das Modell.</translation>
    </message>
    <message>
        <source>Reads the whole state of the device as the JSON text that the device sent.</source>
        <translation>Liest den gesamten Zustand des Geräts als den JSON-Text, den das Gerät gesendet hat.</translation>
    </message>
    <message>
        <source>Reads the whole state of the device and replaces the cards in the model that the argument names.</source>
        <translation>Liest den gesamten Zustand des Geräts und ersetzt im Modell die Karten, die das Argument nennt.</translation>
    </message>
    <message>
        <source>Reads the groups that the device belongs to.</source>
        <translation>Liest die Gruppen, zu denen das Gerät gehört.</translation>
    </message>
    <message>
        <source>Reads the output mapping.</source>
        <translation>Liest die Zuordnung der Ausgänge.</translation>
    </message>
    <message>
        <source>Renames the device.</source>
        <translation>Benennt das Gerät um.</translation>
    </message>
    <message>
        <source>Sets the working modes of cards and connectors.</source>
        <translation>Setzt die Betriebsarten von Karten und Anschlüssen.</translation>
    </message>
    <message>
        <source>Selects the signal that the device locks its outputs to.</source>
        <translation>Wählt das Signal, auf das das Gerät seine Ausgänge synchronisiert.</translation>
    </message>
    <message>
        <source>Sets up the network ports.</source>
        <translation>Richtet die Netzwerkanschlüsse ein.</translation>
    </message>
    <message>
        <source>Selects whether a take swaps preview and programme.</source>
        <translation>Wählt, ob ein Take Vorschau und Programm tauscht.</translation>
    </message>
    <message>
        <source>Sets the output mapping and its test pattern.</source>
        <translation>Setzt die Zuordnung der Ausgänge und ihr Testbild.</translation>
    </message>
    <message>
        <source>Sets the conversion between dynamic ranges.</source>
        <translation>Setzt die Konvertierung zwischen Dynamikumfängen.</translation>
    </message>
    <message>
        <source>Sets the groups that the device belongs to.</source>
        <translation>Setzt die Gruppen, zu denen das Gerät gehört.</translation>
    </message>
    <message>
        <source>Sets the backup relations between interfaces.</source>
        <translation>Setzt die Ersatzbeziehungen zwischen Schnittstellen.</translation>
    </message>
    <message>
        <source>Switches the device&apos;s ZeLK feature on or off.</source>
        <translation>Schaltet die ZeLK-Funktion des Geräts ein oder aus.</translation>
    </message>
    <message>
        <source>Selects where an applied preset goes: preview or programme.</source>
        <translation>Wählt, wohin ein angewendetes Preset geht: Vorschau oder Programm.</translation>
    </message>
    <message>
        <source>Reads interfaces.</source>
        <translation>Liest Schnittstellen.</translation>
    </message>
    <message>
        <source>Sets the names of interfaces.</source>
        <translation>Setzt die Namen von Schnittstellen.</translation>
    </message>
    <message>
        <source>Sends the same command as writeInterfaceGeneral().</source>
        <translation>Sendet denselben Befehl wie writeInterfaceGeneral().</translation>
    </message>
    <message>
        <source>Shows or hides a test pattern.</source>
        <translation>Zeigt ein Testbild oder blendet es aus.</translation>
    </message>
    <message>
        <source>Requests a video timing.</source>
        <translation>Fordert ein Video-Timing an.</translation>
    </message>
    <message>
        <source>Sends nothing and fails: the device measures timings.</source>
        <translation>Sendet nichts und schlägt fehl: Das Gerät misst die Timings.</translation>
    </message>
    <message>
        <source>Sets contrast, brightness, hue, saturation and gamma.</source>
        <translation>Setzt Kontrast, Helligkeit, Farbton, Sättigung und Gamma.</translation>
    </message>
    <message>
        <source>Crops inputs, in units of 1/100000 of their size.</source>
        <translation>Beschneidet Eingänge in Einheiten von 1/100000 ihrer Größe.</translation>
    </message>
    <message>
        <source>Cuts a colour or a brightness out of inputs.</source>
        <translation>Stellt in Eingängen eine Farbe oder eine Helligkeit frei.</translation>
    </message>
    <message>
        <source>Switches copy protection on or off.</source>
        <translation>Schaltet den Kopierschutz ein oder aus.</translation>
    </message>
    <message>
        <source>Requests a colour depth.</source>
        <translation>Fordert eine Farbtiefe an.</translation>
    </message>
    <message>
        <source>Requests a colour space.</source>
        <translation>Fordert einen Farbraum an.</translation>
    </message>
    <message>
        <source>Requests a colour range.</source>
        <translation>Fordert einen Farbbereich an.</translation>
    </message>
    <message>
        <source>Selects the format mapping.</source>
        <translation>Wählt die Formatzuordnung.</translation>
    </message>
    <message>
        <source>Sets gamut and dynamic range.</source>
        <translation>Setzt Farbumfang und Dynamikumfang.</translation>
    </message>
    <message>
        <source>Reads screens.</source>
        <translation>Liest Screens.</translation>
    </message>
    <message>
        <source>Creates screens with their outputs and their position.</source>
        <translation>Legt Screens mit ihren Ausgängen und ihrer Position an.</translation>
    </message>
    <message>
        <source>Renames screens.</source>
        <translation>Benennt Screens um.</translation>
    </message>
    <message>
        <source>Sets the colour of the area that no layer covers.</source>
        <translation>Setzt die Farbe der Fläche, die kein Layer bedeckt.</translation>
    </message>
    <message>
        <source>Moves screens on the canvas, in pixels.</source>
        <translation>Verschiebt Screens auf der Arbeitsfläche, in Pixeln.</translation>
    </message>
    <message>
        <source>Sets the physical size of screens.</source>
        <translation>Setzt die physische Größe von Screens.</translation>
    </message>
    <message>
        <source>Selects whether edits go to the preview or to the programme.</source>
        <translation>Wählt, ob Änderungen in die Vorschau oder in das Programm gehen.</translation>
    </message>
    <message>
        <source>Selects screens on the device&apos;s own panel.</source>
        <translation>Wählt Screens auf der Bedienoberfläche des Geräts aus.</translation>
    </message>
    <message>
        <source>Sets contrast, brightness, hue, saturation and gamma of screens.</source>
        <translation>Setzt Kontrast, Helligkeit, Farbton, Sättigung und Gamma von Screens.</translation>
    </message>
    <message>
        <source>Freezes or releases the picture of screens.</source>
        <translation>Friert das Bild von Screens ein oder gibt es frei.</translation>
    </message>
    <message>
        <source>Fades screens to black, or back to the picture.</source>
        <translation>Blendet Screens ins Schwarz oder zurück zum Bild.</translation>
    </message>
    <message>
        <source>Sets the transition of the next take.</source>
        <translation>Setzt den Übergang des nächsten Takes.</translation>
    </message>
    <message>
        <source>Moves the T-bar, in percent.</source>
        <translation>Bewegt die T-Bar, in Prozent.</translation>
    </message>
    <message>
        <source>Takes: switches the preview to programme with the given transition.</source>
        <translation>Führt einen Take aus: schaltet die Vorschau mit dem angegebenen Übergang auf Programm.</translation>
    </message>
    <message>
        <source>Deletes screens with their layers.</source>
        <translation>Löscht Screens mit ihren Layern.</translation>
    </message>
    <message>
        <source>Sets the dynamic range of the outputs of screens.</source>
        <translation>Setzt den Dynamikumfang der Ausgänge von Screens.</translation>
    </message>
    <message>
        <source>Switches the ZeLK feature of screens on or off.</source>
        <translation>Schaltet die ZeLK-Funktion von Screens ein oder aus.</translation>
    </message>
    <message>
        <source>Reads layers.</source>
        <translation>Liest Layer.</translation>
    </message>
    <message>
        <source>Creates layers with all their properties, or replaces them.</source>
        <translation>Legt Layer mit allen Eigenschaften an oder ersetzt sie.</translation>
    </message>
    <message>
        <source>Creates layers, or switches them on, with stacking order, source, window and border.</source>
        <translation>Legt Layer an oder schaltet sie ein, mit Stapelfolge, Quelle, Fenster und Rahmen.</translation>
    </message>
    <message>
        <source>Sets the stacking order of layers.</source>
        <translation>Setzt die Stapelfolge von Layern.</translation>
    </message>
    <message>
        <source>Sets name, freeze, monochrome, inversion and flip of layers.</source>
        <translation>Setzt Name, Standbild, Schwarzweiß, Invertierung und Spiegelung von Layern.</translation>
    </message>
    <message>
        <source>Selects what layers show, and which part of it.</source>
        <translation>Wählt, was Layer zeigen und welchen Teil davon.</translation>
    </message>
    <message>
        <source>Moves and resizes layers on their screen, in pixels.</source>
        <translation>Verschiebt Layer auf ihrem Screen und ändert ihre Größe, in Pixeln.</translation>
    </message>
    <message>
        <source>Masks the edges of layers.</source>
        <translation>Maskiert die Ränder von Layern.</translation>
    </message>
    <message>
        <source>Shows a test colour instead of the source of layers, or the source again.</source>
        <translation>Zeigt statt der Quelle von Layern eine Testfarbe oder wieder die Quelle.</translation>
    </message>
    <message>
        <source>Sets the opacity of layers, from 0 (transparent) to 100 (opaque).</source>
        <translation>Setzt die Deckkraft von Layern, von 0 (durchsichtig) bis 100 (deckend).</translation>
    </message>
    <message>
        <source>Sets contrast, brightness, hue, saturation and gamma of layers.</source>
        <translation>Setzt Kontrast, Helligkeit, Farbton, Sättigung und Gamma von Layern.</translation>
    </message>
    <message>
        <source>Sets the shadow of layers.</source>
        <translation>Setzt den Schatten von Layern.</translation>
    </message>
    <message>
        <source>Sets the border of layers.</source>
        <translation>Setzt den Rahmen von Layern.</translation>
    </message>
    <message>
        <source>Selects layers on the device&apos;s own panel.</source>
        <translation>Wählt Layer auf der Bedienoberfläche des Geräts aus.</translation>
    </message>
    <message>
        <source>Sets the under-monitor displays of layers.</source>
        <translation>Setzt die Beschriftungen (UMD) von Layern.</translation>
    </message>
    <message>
        <source>Removes the listed layers.</source>
        <translation>Entfernt die aufgeführten Layer.</translation>
    </message>
    <message>
        <source>Removes all layers of one screen.</source>
        <translation>Entfernt alle Layer eines Screens.</translation>
    </message>
    <message>
        <source>Binds layers to partners as cut and fill, or releases them.</source>
        <translation>Verbindet Layer mit Partnern als Cut und Fill oder löst sie.</translation>
    </message>
    <message>
        <source>Applies presets.</source>
        <translation>Wendet Presets an.</translation>
    </message>
    <message>
        <source>Lists files.</source>
        <translation>Listet Dateien auf.</translation>
    </message>
    <message>
        <source>Deletes files.</source>
        <translation>Löscht Dateien.</translation>
    </message>
    <message>
        <source>Renames and moves files.</source>
        <translation>Benennt Dateien um und verschiebt sie.</translation>
    </message>
    <message>
        <source>Announces files whose content follows.</source>
        <translation>Kündigt Dateien an, deren Inhalt folgt.</translation>
    </message>
    <message>
        <source>Makes the device capture images.</source>
        <translation>Lässt das Gerät Bilder aufnehmen.</translation>
    </message>
    <message>
        <source>Makes the device store its state as presets.</source>
        <translation>Lässt das Gerät seinen Zustand als Presets speichern.</translation>
    </message>
    <message>
        <source>Makes the device store projects.</source>
        <translation>Lässt das Gerät Projekte speichern.</translation>
    </message>
    <message>
        <source>Makes the device collect logs.</source>
        <translation>Lässt das Gerät Protokolle sammeln.</translation>
    </message>
    <message>
        <source>Makes the device create EDID files from interfaces.</source>
        <translation>Lässt das Gerät EDID-Dateien aus Schnittstellen erstellen.</translation>
    </message>
    <message>
        <source>Applies projects.</source>
        <translation>Wendet Projekte an.</translation>
    </message>
    <message>
        <source>Restarts the device or shuts it down.</source>
        <translation>Startet das Gerät neu oder fährt es herunter.</translation>
    </message>
    <message>
        <source>Resets the device to factory settings.</source>
        <translation>Setzt das Gerät auf Werkseinstellungen zurück.</translation>
    </message>
    <message>
        <source>Makes the device save its state.</source>
        <translation>Lässt das Gerät seinen Zustand speichern.</translation>
    </message>
    <message>
        <source>Starts, stops or clears the count of lost sources.</source>
        <translation>Startet, beendet oder löscht die Zählung verlorener Quellen.</translation>
    </message>
    <message>
        <source>Makes the device pick the colour at a position.</source>
        <translation>Lässt das Gerät die Farbe an einer Position aufnehmen.</translation>
    </message>
    <message>
        <source>Starts a firmware upgrade from a package that the device already holds.</source>
        <translation>Startet eine Firmware-Aktualisierung aus einem Paket, das auf dem Gerät liegt.</translation>
    </message>
    <message>
        <source>Sets the clock of the device, in local time.</source>
        <translation>Stellt die Uhr des Geräts, in Ortszeit.</translation>
    </message>
    <message>
        <source>Reads how often sources were lost.</source>
        <translation>Liest, wie oft Quellen verloren gingen.</translation>
    </message>
    <message>
        <source>Reads the progress of a firmware upgrade, in percent.</source>
        <translation>Liest den Fortschritt einer Firmware-Aktualisierung, in Prozent.</translation>
    </message>
    <message>
        <source>Reads the versions of the device and its units.</source>
        <translation>Liest die Versionen des Geräts und seiner Einheiten.</translation>
    </message>
    <message>
        <source>Reads the result of the device&apos;s self check.</source>
        <translation>Liest das Ergebnis der Selbstprüfung des Geräts.</translation>
    </message>
    <message>
        <source>Reads the progress with which the device loads its stored files.</source>
        <translation>Liest, wie weit das Gerät seine gespeicherten Dateien geladen hat.</translation>
    </message>
    <message>
        <source>%1 is out of range</source>
        <translation>%1 liegt außerhalb des Bereichs</translation>
    </message>
</context>
<context>
    <name>Tavoro::Outcome</name>
    <message>
        <source>the device does not know this command</source>
        <translation>das Gerät kennt diesen Befehl nicht</translation>
    </message>
    <message>
        <source>the device does not accept this data</source>
        <translation>das Gerät nimmt diese Daten nicht an</translation>
    </message>
    <message>
        <source>the device does not have this object</source>
        <translation>das Gerät hat dieses Objekt nicht</translation>
    </message>
    <message>
        <source>a value is out of range</source>
        <translation>ein Wert liegt außerhalb seines Bereichs</translation>
    </message>
    <message>
        <source>the data is too long for the device</source>
        <translation>die Daten sind für das Gerät zu lang</translation>
    </message>
    <message>
        <source>the device is busy, or the object is in use</source>
        <translation>das Gerät ist beschäftigt, oder das Objekt wird verwendet</translation>
    </message>
    <message>
        <source>the content differs from its announcement</source>
        <translation>der Inhalt weicht von seiner Ankündigung ab</translation>
    </message>
    <message>
        <source>the storage of the device is full or has failed</source>
        <translation>der Speicher des Geräts ist voll oder ausgefallen</translation>
    </message>
    <message>
        <source>another client controls the device</source>
        <translation>ein anderer Client steuert das Gerät</translation>
    </message>
    <message>
        <source>another client has changed the device, read it again first</source>
        <translation>ein anderer Client hat das Gerät verändert; zuerst neu lesen</translation>
    </message>
    <message>
        <source>the connection was lost</source>
        <translation>die Verbindung ging verloren</translation>
    </message>
    <message>
        <source>the device did not answer in time</source>
        <translation>das Gerät hat nicht rechtzeitig geantwortet</translation>
    </message>
    <message>
        <source>the connection was lost within the answer</source>
        <translation>die Verbindung ging während der Antwort verloren</translation>
    </message>
    <message>
        <source>the device stopped answering</source>
        <translation>das Gerät antwortet nicht mehr</translation>
    </message>
    <message>
        <source>the answer was not complete in time</source>
        <translation>die Antwort war nicht rechtzeitig vollständig</translation>
    </message>
    <message>
        <source>there is no connection</source>
        <translation>es besteht keine Verbindung</translation>
    </message>
    <message>
        <source>the connection was lost before</source>
        <translation>die Verbindung ging vorher verloren</translation>
    </message>
    <message>
        <source>too many calls are waiting</source>
        <translation>zu viele Aufrufe warten</translation>
    </message>
    <message>
        <source>a newer value has replaced it</source>
        <translation>durch einen neueren Wert ersetzt</translation>
    </message>
    <message>
        <source>it was cancelled</source>
        <translation>abgebrochen</translation>
    </message>
    <message>
        <source>the answer of the device cannot be read</source>
        <translation>die Antwort des Geräts ist nicht lesbar</translation>
    </message>
    <message>
        <source>the connection was lost before the last packet was sent</source>
        <translation>die Verbindung ging verloren, bevor das letzte Paket gesendet war</translation>
    </message>
    <message>
        <source>the device is controlled by %1</source>
        <translation>das Gerät wird von %1 gesteuert</translation>
    </message>
    <message>
        <source>the request for control</source>
        <translation>die Anforderung der Steuerung</translation>
    </message>
    <message>
        <source>the question who holds control</source>
        <translation>die Frage, wer die Steuerung hat</translation>
    </message>
    <message>
        <source>unknown operation &quot;%1&quot;</source>
        <translation>unbekannte Operation „%1“</translation>
    </message>
    <message>
        <source>%1: %2 was carried out.</source>
        <translation>%1: %2 wurde ausgeführt.</translation>
    </message>
    <message>
        <source>%1: %2 was refused: %3.</source>
        <translation>%1: %2 wurde abgelehnt: %3.</translation>
    </message>
    <message>
        <source>%1: %2 was not sent: %3.</source>
        <translation>%1: %2 wurde nicht gesendet: %3.</translation>
    </message>
    <message>
        <source>%1: %2 may or may not have been carried out: %3.</source>
        <translation>%1: Ob %2 ausgeführt wurde, ist unbekannt: %3.</translation>
    </message>
    <message>
        <source>%1: %2 was cancelled.</source>
        <translation>%1: %2 wurde abgebrochen.</translation>
    </message>
    <message>
        <source>Request</source>
        <translation>Anfrage</translation>
    </message>
    <message>
        <source>%1 holds the lease</source>
        <translation>%1 hat die Reservierung</translation>
    </message>
    <message>
        <source>the device does not support leases</source>
        <translation>das Gerät unterstützt keine Reservierungen</translation>
    </message>
    <message>
        <source>the release of the lease</source>
        <translation>die Freigabe der Reservierung</translation>
    </message>
    <message>
        <source>the request for the lease</source>
        <translation>die Anforderung der Reservierung</translation>
    </message>
</context>
<context>
    <name>Tavoro::ProtoModel</name>
    <message>
        <source>the serial number is not 16 hexadecimal digits</source>
        <translation>die Seriennummer hat nicht 16 hexadezimale Ziffern</translation>
    </message>
    <message>
        <source>the MAC address is not 12 hexadecimal digits</source>
        <translation>die MAC-Adresse hat nicht 12 hexadezimale Ziffern</translation>
    </message>
</context>
<context>
    <name>Tavoro::SSProxy::DeviceManager</name>
    <message>
        <source>The device at %1 is not connected.</source>
        <translation>Das Gerät unter %1 ist nicht verbunden.</translation>
    </message>
    <message>
        <source>The device at %1 is controlled by another client.</source>
        <translation>Das Gerät unter %1 wird von einem anderen Client gesteuert.</translation>
    </message>
</context>
<context>
    <name>Tavoro::SSProxy::Internal::ChannelLink</name>
    <message>
        <source>no connection in time</source>
        <translation>keine rechtzeitige Verbindung</translation>
    </message>
    <message>
        <source>there are too many connections</source>
        <translation>es gibt zu viele Verbindungen</translation>
    </message>
    <message>
        <source>it stopped answering</source>
        <translation>es antwortet nicht mehr</translation>
    </message>
    <message>
        <source>it sent an invalid frame (%1)</source>
        <translation>es hat einen ungültigen Frame gesendet (%1)</translation>
    </message>
    <message>
        <source>it did not identify itself in time</source>
        <translation>es hat sich nicht rechtzeitig identifiziert</translation>
    </message>
    <message>
        <source>its identity cannot be read: %1</source>
        <translation>seine Identität ist nicht lesbar: %1</translation>
    </message>
    <message>
        <source>it speaks protocol version %1, and only version %2 is supported</source>
        <translation>es spricht Protokollversion %1, unterstützt wird nur Version %2</translation>
    </message>
    <message>
        <source>it takes packets of 0 bytes</source>
        <translation>es nimmt Pakete von 0 Bytes an</translation>
    </message>
    <message>
        <source>another device is there</source>
        <translation>dort ist ein anderes Gerät</translation>
    </message>
</context>
<context>
    <name>Tavoro::SSProxy::Internal::ChannelReadiness</name>
    <message>
        <source>no connection yet</source>
        <translation>noch keine Verbindung</translation>
    </message>
    <message>
        <source>The device at %1 cannot be reached: %2.</source>
        <translation>Das Gerät unter %1 ist nicht erreichbar: %2.</translation>
    </message>
</context>
<context>
    <name>Tavoro::SSProxy::Internal::DeviceControl</name>
    <message>
        <source>The device at %1 is controlled by %2.</source>
        <translation>Das Gerät unter %1 wird von %2 gesteuert.</translation>
    </message>
    <message>
        <source>Could not give up control of the device at %1: %2 (%3).</source>
        <translation>Die Steuerung des Geräts unter %1 konnte nicht abgegeben werden: %2 (%3).</translation>
    </message>
    <message>
        <source>Could not take control of the device at %1: %2 (%3).</source>
        <translation>Die Steuerung des Geräts unter %1 konnte nicht übernommen werden: %2 (%3).</translation>
    </message>
    <message>
        <source>no answer in time</source>
        <translation>keine rechtzeitige Antwort</translation>
    </message>
    <message>
        <source>called on the channels&apos; own thread</source>
        <translation>im eigenen Thread der Kanäle aufgerufen</translation>
    </message>
    <message>
        <source>too many requests are in flight</source>
        <translation>zu viele Anfragen sind unterwegs</translation>
    </message>
    <message>
        <source>the connection was lost</source>
        <translation>die Verbindung ging verloren</translation>
    </message>
    <message>
        <source>the device refuses</source>
        <translation>das Gerät lehnt ab</translation>
    </message>
    <message>
        <source>its answer is not valid</source>
        <translation>seine Antwort ist ungültig</translation>
    </message>
    <message>
        <source>another client</source>
        <translation>einem anderen Client</translation>
    </message>
</context>
<context>
    <name>Tavoro::SSProxy::Internal::DiscoveryQuery</name>
    <message>
        <source>Cannot search for devices: %1.</source>
        <translation>Die Suche nach Geräten ist nicht möglich: %1.</translation>
    </message>
</context>
<context>
    <name>Tavoro::SSProxy::Internal::ResponseMonitor</name>
    <message>
        <source>it left too many requests unanswered</source>
        <translation>es hat zu viele Anfragen nicht beantwortet</translation>
    </message>
    <message>
        <source>it stopped in the middle of a frame</source>
        <translation>es brach mitten in einem Frame ab</translation>
    </message>
</context>
<context>
    <name>Tavoro::SSProxy::Internal::StreamChannel</name>
    <message>
        <source>it has no address</source>
        <translation>es hat keine Adresse</translation>
    </message>
    <message>
        <source>the channel is stopped</source>
        <translation>der Kanal ist gestoppt</translation>
    </message>
</context>
<context>
    <name>Tavoro::SSProxy::Internal::TcpStream</name>
    <message>
        <source>The remote host closed the connection</source>
        <translation>Die Gegenstelle hat die Verbindung geschlossen</translation>
    </message>
</context>
</TS>
