<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Ctl</name>
    <message>
        <source>the closing quote is missing</source>
        <translation>das schließende Anführungszeichen fehlt</translation>
    </message>
    <message>
        <source>expected a space after the closing quote</source>
        <translation>nach dem schließenden Anführungszeichen fehlt ein Leerzeichen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a file type; use 0 to %2 or one of: %3</source>
        <translation>„%1“ ist kein Dateityp; möglich sind 0 bis %2 oder: %3</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a valid file ID (0 to %2)</source>
        <translation>„%1“ ist keine gültige Datei-ID (0 bis %2)</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number of milliseconds above 0</source>
        <translation>„%1“ ist keine Anzahl von Millisekunden über 0</translation>
    </message>
    <message>
        <source>%1 Did you mean --%2?</source>
        <translation>%1 Meinten Sie --%2?</translation>
    </message>
    <message>
        <source>%1 takes %2</source>
        <translation>%1 erwartet %2</translation>
    </message>
    <message>
        <source>expected a command; --help lists all commands</source>
        <translation>Befehl erwartet; --help listet alle Befehle auf</translation>
    </message>
    <message>
        <source>--merge goes neither with --defaults nor with --dry-run</source>
        <translation>--merge passt weder zu --defaults noch zu --dry-run</translation>
    </message>
    <message>
        <source>; give them, or send their defaults with --defaults</source>
        <translation>; geben Sie sie an oder senden Sie ihre Vorgaben mit --defaults</translation>
    </message>
    <message>
        <source>--merge needs a write and its record</source>
        <translation>--merge braucht eine schreibende Operation und ihren Datensatz</translation>
    </message>
    <message>
        <source>expected an operation</source>
        <translation>Operation erwartet</translation>
    </message>
    <message>
        <source>The device does not say which client holds control.</source>
        <translation>Das Gerät gibt nicht an, welcher Client die Steuerung hat.</translation>
    </message>
    <message>
        <source>nobody</source>
        <translation>niemand</translation>
    </message>
    <message>
        <source>This client holds control until Ctrl-C.</source>
        <translation>Dieser Client behält die Steuerung bis Strg+C.</translation>
    </message>
    <message>
        <source>Control ended with the connection.</source>
        <translation>Die Steuerung endete mit der Verbindung.</translation>
    </message>
    <message>
        <source>Another client has taken control.</source>
        <translation>Ein anderer Client hat die Steuerung übernommen.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not who, take, release or force</source>
        <translation>„%1“ ist nicht who, take, release oder force</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not ADDRESS[:PORT]</source>
        <translation>„%1“ ist nicht ADDRESS[:PORT]</translation>
    </message>
    <message>
        <source>No device answered.</source>
        <translation>Kein Gerät hat geantwortet.</translation>
    </message>
    <message>
        <source>TYPE ID NAME BYTES HASH PIXELS</source>
        <translation>TYP ID NAME BYTES HASH PIXEL</translation>
    </message>
    <message>
        <source>unknown command &quot;%1&quot;%2; --help lists all commands</source>
        <translation>unbekannter Befehl „%1“%2; --help listet alle Befehle auf</translation>
    </message>
    <message>
        <source>SLOT TYPE MODEL MEASUREMENT VALUE MIN MAX STATE</source>
        <translation>STECKPLATZ TYP MODELL MESSUNG WERT MIN MAX ZUSTAND</translation>
    </message>
    <message>
        <source>good</source>
        <translation>gut</translation>
    </message>
    <message>
        <source>faulty</source>
        <translation>fehlerhaft</translation>
    </message>
    <message>
        <source>SLOT TYPE MODEL SECTION VERSION</source>
        <translation>STECKPLATZ TYP MODELL ABSCHNITT VERSION</translation>
    </message>
    <message>
        <source>device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>The self check reports a fault in %1.</source>
        <translation>Die Selbstprüfung meldet einen Fehler bei %1.</translation>
    </message>
    <message>
        <source>%1 cannot be merged: no read returns what it writes</source>
        <translation>%1 kann nicht ergänzt werden: Keine lesende Operation liefert, was sie schreibt</translation>
    </message>
    <message>
        <source>%1: the device has no object with this identity</source>
        <translation>%1: Das Gerät hat kein Objekt mit dieser Identität</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a valid screen ID (0 to 255)</source>
        <translation>„%1“ ist keine gültige Screen-ID (0 bis 255)</translation>
    </message>
    <message>
        <source>The device has no screen %1.</source>
        <translation>Das Gerät hat keinen Screen %1.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number</source>
        <translation>„%1“ ist keine Zahl</translation>
    </message>
    <message>
        <source>shows and controls video processors from a terminal</source>
        <translation>zeigt und steuert Videoprozessoren vom Terminal aus</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a kind of files; use all, none or some of: %2</source>
        <translation>„%1“ ist keine Art von Dateien; möglich sind all, none oder einige von: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not WIDTHxHEIGHT</source>
        <translation>„%1“ ist nicht WIDTHxHEIGHT</translation>
    </message>
    <message>
        <source>%1 has %2 bytes. The device could not return more than %3: a client takes at most %4 packets, and the packets of this device have %5 bytes.</source>
        <translation>%1 hat %2 Bytes. Das Gerät könnte nicht mehr als %3 zurückgeben: Ein Client nimmt höchstens %4 Pakete an, und die Pakete dieses Geräts haben %5 Bytes.</translation>
    </message>
    <message>
        <source>The device has the file %1 %2 (&quot;%3&quot;). Replace it with --force, or leave --id out.</source>
        <translation>Das Gerät hat die Datei %1 %2 („%3“). Ersetzen Sie sie mit --force, oder lassen Sie --id weg.</translation>
    </message>
    <message>
        <source>The device has no free ID for a file of the type %1.</source>
        <translation>Das Gerät hat keine freie ID für eine Datei vom Typ %1.</translation>
    </message>
    <message>
        <source>%1: code %2, type %3, filters %4, %5 bytes</source>
        <translation>%1: Code %2, Typ %3, Filter %4, %5 Bytes</translation>
    </message>
    <message>
        <source>Cannot read %1: %2.</source>
        <translation>%1 kann nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>The device differs from the document: </source>
        <translation>Das Gerät weicht vom Dokument ab: </translation>
    </message>
    <message>
        <source>The device could not be read completely.</source>
        <translation>Das Gerät konnte nicht vollständig gelesen werden.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not HOST[:PORT]</source>
        <translation>„%1“ ist nicht HOST[:PORT]</translation>
    </message>
    <message>
        <source>%1 is empty</source>
        <translation>%1 ist leer</translation>
    </message>
    <message>
        <source>unknown operation &quot;%1&quot;%2; &quot;tavoroctl list&quot; lists all operations</source>
        <translation>unbekannte Operation „%1“%2; „tavoroctl list“ listet alle Operationen auf</translation>
    </message>
    <message>
        <source>The device continues with the upgrade.</source>
        <translation>Das Gerät setzt die Aktualisierung fort.</translation>
    </message>
    <message>
        <source>slot %1, type %2</source>
        <translation>Steckplatz %1, Typ %2</translation>
    </message>
    <message>
        <source>upgrade</source>
        <translation>Aktualisierung</translation>
    </message>
    <message>
        <source>The upgrade failed at %1 %.</source>
        <translation>Die Aktualisierung ist bei %1 % fehlgeschlagen.</translation>
    </message>
    <message>
        <source>The upgrade is done.</source>
        <translation>Die Aktualisierung ist abgeschlossen.</translation>
    </message>
    <message>
        <source>written</source>
        <translation>geschrieben</translation>
    </message>
    <message>
        <source>failed with result %1</source>
        <translation>fehlgeschlagen mit Ergebnis %1</translation>
    </message>
    <message>
        <source>Interrupted.</source>
        <translation>Unterbrochen.</translation>
    </message>
    <message>
        <source>Following the upgrade that is running on the device.</source>
        <translation>Die laufende Aktualisierung des Geräts wird verfolgt.</translation>
    </message>
    <message>
        <source>Watching %1; press Ctrl-C to stop.</source>
        <translation>%1 wird beobachtet; Ende mit Strg+C.</translation>
    </message>
    <message>
        <source>Connection lost.</source>
        <translation>Verbindung verloren.</translation>
    </message>
    <message>
        <source>Reconnected.</source>
        <translation>Wieder verbunden.</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>nichts</translation>
    </message>
    <message>
        <source>interface %1</source>
        <translation>Schnittstelle %1</translation>
    </message>
    <message>
        <source>screen %1</source>
        <translation>Screen %1</translation>
    </message>
    <message>
        <source>screen %1, %2, layer %3 (type %4)</source>
        <translation>Screen %1, %2, Layer %3 (Typ %4)</translation>
    </message>
    <message>
        <source>file %1</source>
        <translation>Datei %1</translation>
    </message>
    <message>
        <source>transfer of type %1 at %2 %, status %3</source>
        <translation>Übertragung vom Typ %1 bei %2 %, Status %3</translation>
    </message>
    <message>
        <source>new</source>
        <translation>neu</translation>
    </message>
    <message>
        <source>gone</source>
        <translation>entfernt</translation>
    </message>
    <message>
        <source>interface %1.%2.%3</source>
        <translation>Schnittstelle %1.%2.%3</translation>
    </message>
    <message>
        <source>file %1:%2</source>
        <translation>Datei %1:%2</translation>
    </message>
    <message>
        <source>%1: unknown key &quot;%2&quot;%3</source>
        <translation>%1: unbekannter Schlüssel „%2“%3</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a list</source>
        <translation>„%1“ ist keine Liste</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an object</source>
        <translation>„%1“ ist kein Objekt</translation>
    </message>
    <message>
        <source>element %1 of &quot;%2&quot; does not identify an object</source>
        <translation>Element %1 von „%2“ bezeichnet kein Objekt</translation>
    </message>
    <message>
        <source>%1 is in the document twice</source>
        <translation>%1 kommt im Dokument zweimal vor</translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>&quot;formatVersion&quot; is not %1</source>
        <translation>„formatVersion“ ist nicht %1</translation>
    </message>
    <message>
        <source>the document</source>
        <translation>das Dokument</translation>
    </message>
    <message>
        <source>DEVICE</source>
        <translation>GERÄT</translation>
    </message>
    <message>
        <source>status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>swap</source>
        <translation>Swap</translation>
    </message>
    <message>
        <source>genlock signal</source>
        <translation>Genlock-Signal</translation>
    </message>
    <message>
        <source>power supplies</source>
        <translation>Netzteile</translation>
    </message>
    <message>
        <source>cards</source>
        <translation>Karten</translation>
    </message>
    <message>
        <source>groups</source>
        <translation>Gruppen</translation>
    </message>
    <message>
        <source>INTERFACE TYPE NAME TIMING DEPTH HDCP</source>
        <translation>SCHNITTSTELLE TYP NAME TIMING FARBTIEFE HDCP</translation>
    </message>
    <message>
        <source>SCREEN NAME WINDOW FREEZE FTB T-BAR OUTPUTS</source>
        <translation>SCREEN NAME FENSTER STANDBILD FTB T-BAR AUSGÄNGE</translation>
    </message>
    <message>
        <source>LAYER SCREEN SCENE TYPE Z NAME SOURCE WINDOW OPACITY</source>
        <translation>LAYER SCREEN SZENE TYP Z NAME QUELLE FENSTER DECKKRAFT</translation>
    </message>
    <message>
        <source>Cannot write standard output: %1.</source>
        <translation>Die Standardausgabe kann nicht geschrieben werden: %1.</translation>
    </message>
    <message>
        <source>line %1 of the batch: </source>
        <translation>Zeile %1 des Stapels: </translation>
    </message>
    <message>
        <source>%1 (type %2)</source>
        <translation>%1 (Typ %2)</translation>
    </message>
    <message>
        <source>%1x%2 at %3,%4</source>
        <translation>%1x%2 bei %3,%4</translation>
    </message>
    <message>
        <source>no signal</source>
        <translation>kein Signal</translation>
    </message>
    <message>
        <source>preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>programme</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>slot %1</source>
        <translation>Steckplatz %1</translation>
    </message>
    <message>
        <source>%1 connectors</source>
        <translation>%1 Anschlüsse</translation>
    </message>
    <message>
        <source>online</source>
        <translation>online</translation>
    </message>
    <message>
        <source>offline</source>
        <translation>offline</translation>
    </message>
    <message>
        <source>works</source>
        <translation>in Ordnung</translation>
    </message>
    <message>
        <source>fails</source>
        <translation>ausgefallen</translation>
    </message>
    <message>
        <source>on screen %1</source>
        <translation>auf Screen %1</translation>
    </message>
    <message>
        <source>layer %1</source>
        <translation>Layer %1</translation>
    </message>
    <message>
        <source>opacity %1</source>
        <translation>Deckkraft %1</translation>
    </message>
    <message>
        <source>frozen</source>
        <translation>eingefroren</translation>
    </message>
    <message>
        <source>faded to black</source>
        <translation>auf Schwarz</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 Bytes</translation>
    </message>
    <message>
        <source>files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>%1  %2  MAC %3  serial number %4  model %5  %6</source>
        <translation>%1  %2  MAC %3  Seriennummer %4  Modell %5  %6</translation>
    </message>
    <message>
        <source>inputs</source>
        <translation>Eingänge</translation>
    </message>
    <message>
        <source>outputs</source>
        <translation>Ausgänge</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>noch %1</translation>
    </message>
    <message>
        <source>a status that only this device defines</source>
        <translation>ein Status, den nur dieses Gerät definiert</translation>
    </message>
    <message>
        <source>The devices at %1 and %2 report the same identity; a batch cannot use both.</source>
        <translation>Die Geräte unter %1 und %2 melden dieselbe Identität; ein Stapel kann nicht beide verwenden.</translation>
    </message>
    <message>
        <source>standard input</source>
        <translation>Standardeingabe</translation>
    </message>
    <message>
        <source>%1 is too long: a file has at most %2 bytes.</source>
        <translation>%1 ist zu lang: Eine Datei hat höchstens %2 Bytes.</translation>
    </message>
    <message>
        <source>standard output</source>
        <translation>Standardausgabe</translation>
    </message>
    <message>
        <source>Cannot write %1: %2.</source>
        <translation>%1 kann nicht geschrieben werden: %2.</translation>
    </message>
    <message>
        <source>Received %1 bytes, but the device announced %2.</source>
        <translation>%1 Bytes empfangen, aber das Gerät hat %2 angekündigt.</translation>
    </message>
    <message>
        <source>The checksum of the received file does not match the one the device reports.</source>
        <translation>Die Prüfsumme der empfangenen Datei stimmt nicht mit der überein, die das Gerät meldet.</translation>
    </message>
    <message>
        <source>Received %1 bytes in %2 packets, but the device announced %3 bytes.</source>
        <translation>%1 Bytes in %2 Paketen empfangen, aber das Gerät hat %3 Bytes angekündigt.</translation>
    </message>
    <message>
        <source>The device may have the file.</source>
        <translation>Das Gerät hat die Datei möglicherweise.</translation>
    </message>
    <message>
        <source>Show this help.</source>
        <translation>Diese Hilfe anzeigen.</translation>
    </message>
    <message>
        <source>Print JSON, also for errors.</source>
        <translation>JSON ausgeben, auch für Fehler.</translation>
    </message>
    <message>
        <source>Print only answers and errors.</source>
        <translation>Nur Antworten und Fehler ausgeben.</translation>
    </message>
    <message>
        <source>Wait at most MS milliseconds for each answer (as long as the library waits, up to 200 s).</source>
        <translation>Höchstens MS Millisekunden auf jede Antwort warten (so lange, wie die Bibliothek wartet, bis zu 200 s).</translation>
    </message>
    <message>
        <source>Wait MS milliseconds for a device to be ready (5000).</source>
        <translation>MS Millisekunden warten, bis ein Gerät bereit ist (5000).</translation>
    </message>
    <message>
        <source>Show the log on standard error.</source>
        <translation>Das Protokoll auf der Standardfehlerausgabe zeigen.</translation>
    </message>
    <message>
        <source>Show the version of the program.</source>
        <translation>Die Version des Programms anzeigen.</translation>
    </message>
    <message>
        <source>Print the writes as lines of a batch, and make none of them.</source>
        <translation>Die Schreibvorgänge als Zeilen eines Stapels ausgeben und keinen davon ausführen.</translation>
    </message>
    <message>
        <source>Send missing keys of a record at their defaults.</source>
        <translation>Fehlende Schlüssel eines Datensatzes mit ihren Vorgaben senden.</translation>
    </message>
    <message>
        <source>Print the requests, and send nothing.</source>
        <translation>Die Anfragen ausgeben und nichts senden.</translation>
    </message>
    <message>
        <source>Send missing keys of a record as the device has them.</source>
        <translation>Fehlende Schlüssel eines Datensatzes so senden, wie das Gerät sie hat.</translation>
    </message>
    <message>
        <source>End after the first call that fails.</source>
        <translation>Nach dem ersten fehlgeschlagenen Aufruf beenden.</translation>
    </message>
    <message>
        <source>Print the request, and send nothing.</source>
        <translation>Die Anfrage ausgeben und nichts senden.</translation>
    </message>
    <message>
        <source>Type of the file on the device (background).</source>
        <translation>Typ der Datei auf dem Gerät (background).</translation>
    </message>
    <message>
        <source>Replace a file that the device has.</source>
        <translation>Eine Datei ersetzen, die das Gerät hat.</translation>
    </message>
    <message>
        <source>ID of the file on the device (a free one, which is printed).</source>
        <translation>ID der Datei auf dem Gerät (eine freie, die ausgegeben wird).</translation>
    </message>
    <message>
        <source>Name of the file on the device (that of FILE).</source>
        <translation>Name der Datei auf dem Gerät (der von FILE).</translation>
    </message>
    <message>
        <source>Size of an image in pixels.</source>
        <translation>Größe eines Bilds in Pixeln.</translation>
    </message>
    <message>
        <source>Restart the device afterwards, and wait until it is back.</source>
        <translation>Das Gerät danach neu starten und warten, bis es wieder da ist.</translation>
    </message>
    <message>
        <source>Type of the preset (screen-preset).</source>
        <translation>Typ des Presets (screen-preset).</translation>
    </message>
    <message>
        <source>Name of the preset (&quot;Preset ID&quot;).</source>
        <translation>Name des Presets („Preset ID“).</translation>
    </message>
    <message>
        <source>How to apply it, a number that the device defines (0).</source>
        <translation>Art der Anwendung, eine vom Gerät definierte Zahl (0).</translation>
    </message>
    <message>
        <source>Type of the file (10).</source>
        <translation>Typ der Datei (10).</translation>
    </message>
    <message>
        <source>Name of the project (&quot;Project ID&quot;).</source>
        <translation>Name des Projekts („Project ID“).</translation>
    </message>
    <message>
        <source>Kinds of files that it contains, such as logo,preset; or none (all).</source>
        <translation>Arten von Dateien, die es enthält, zum Beispiel logo,preset; oder none (all).</translation>
    </message>
    <message>
        <source>Write the capture to OUT for Wireshark instead; - is stdout.</source>
        <translation>Die Aufzeichnung stattdessen für Wireshark nach OUT schreiben; - ist die Standardausgabe.</translation>
    </message>
    <message>
        <source>Writes to the device what differs in FILE, a setup that sync wrote; - is stdin.</source>
        <translation>Schreibt auf das Gerät, was in FILE abweicht, einer von sync geschriebenen Einstellung; - ist die Standardeingabe.</translation>
    </message>
    <message>
        <source>Makes one call per line of standard input. Without HOST, each line begins with a host.</source>
        <translation>Führt je Zeile der Standardeingabe einen Aufruf aus. Ohne HOST beginnt jede Zeile mit einem Host.</translation>
    </message>
    <message>
        <source>Calls one operation: a write takes its record as JSON, a read its filters as numbers.</source>
        <translation>Ruft eine Operation auf: Eine schreibende erhält ihren Datensatz als JSON, eine lesende ihre Filter als Zahlen.</translation>
    </message>
    <message>
        <source>Shows which client holds control, holds it until Ctrl-C, or ends the control of another.</source>
        <translation>Zeigt, welcher Client die Steuerung hat, behält sie bis Strg+C oder beendet die eines anderen.</translation>
    </message>
    <message>
        <source>Shows what apply would change on the device; ends with 1 if it would change something.</source>
        <translation>Zeigt, was apply auf dem Gerät ändern würde; endet mit 1, wenn es etwas ändern würde.</translation>
    </message>
    <message>
        <source>Lists the devices on the local network, or those that answer at ADDRESS.</source>
        <translation>Listet die Geräte im lokalen Netzwerk auf oder die, die unter ADDRESS antworten.</translation>
    </message>
    <message>
        <source>Lists the files on the device.</source>
        <translation>Listet die Dateien auf dem Gerät auf.</translation>
    </message>
    <message>
        <source>Shows the help of the program or of a command.</source>
        <translation>Zeigt die Hilfe des Programms oder eines Befehls.</translation>
    </message>
    <message>
        <source>Lists all operations or those of a class, or shows the record that OPERATION takes.</source>
        <translation>Listet alle Operationen oder die einer Klasse auf, oder zeigt den Datensatz, den OPERATION erwartet.</translation>
    </message>
    <message>
        <source>Applies a preset.</source>
        <translation>Wendet ein Preset an.</translation>
    </message>
    <message>
        <source>Stores the screens with these IDs as a preset; all screens without an ID.</source>
        <translation>Speichert die Screens mit diesen IDs als Preset; ohne ID alle Screens.</translation>
    </message>
    <message>
        <source>Applies a project.</source>
        <translation>Wendet ein Projekt an.</translation>
    </message>
    <message>
        <source>Stores all screens, with all files or some kinds of them, as a project.</source>
        <translation>Speichert alle Screens, mit allen Dateien oder einigen Arten davon, als Projekt.</translation>
    </message>
    <message>
        <source>Fetches a file from the device into FILE, completely or not at all; - is stdout.</source>
        <translation>Holt eine Datei vom Gerät nach FILE, vollständig oder gar nicht; - ist die Standardausgabe.</translation>
    </message>
    <message>
        <source>Sends FILE to the device; - is standard input.</source>
        <translation>Sendet FILE an das Gerät; - ist die Standardeingabe.</translation>
    </message>
    <message>
        <source>Restarts the device.</source>
        <translation>Startet das Gerät neu.</translation>
    </message>
    <message>
        <source>Shows the connections and frames of a capture.</source>
        <translation>Zeigt die Verbindungen und Frames einer Aufzeichnung.</translation>
    </message>
    <message>
        <source>Shows the measurements of the device; ends with 1 if one is out of its range.</source>
        <translation>Zeigt die Messwerte des Geräts; endet mit 1, wenn einer außerhalb seines Bereichs liegt.</translation>
    </message>
    <message>
        <source>Shows the device, its interfaces, screens and layers as the device reports them.</source>
        <translation>Zeigt das Gerät, seine Schnittstellen, Screens und Layer, wie das Gerät sie meldet.</translation>
    </message>
    <message>
        <source>Reads the whole device into the model and shows the model.</source>
        <translation>Liest das ganze Gerät in das Modell und zeigt das Modell.</translation>
    </message>
    <message>
        <source>Starts an upgrade from a package on the device, or follows the running one.</source>
        <translation>Startet eine Aktualisierung aus einem Paket auf dem Gerät oder verfolgt die laufende.</translation>
    </message>
    <message>
        <source>Shows the versions of the device and of its units.</source>
        <translation>Zeigt die Versionen des Geräts und seiner Einheiten.</translation>
    </message>
    <message>
        <source>Reads the devices as sync does, then shows changes of their models until Ctrl-C.</source>
        <translation>Liest die Geräte wie sync und zeigt dann Änderungen ihrer Modelle bis Strg+C.</translation>
    </message>
    <message>
        <source>Success. Also an interrupted watch.</source>
        <translation>Erfolg. Auch ein unterbrochenes watch.</translation>
    </message>
    <message>
        <source>Something else failed; for diff: there are differences.</source>
        <translation>Etwas anderes ist fehlgeschlagen; bei diff: Es gibt Unterschiede.</translation>
    </message>
    <message>
        <source>The command line or an input is not valid; nothing was sent for it.</source>
        <translation>Die Befehlszeile oder eine Eingabe ist ungültig; dafür wurde nichts gesendet.</translation>
    </message>
    <message>
        <source>The device could not be reached, or the connection was lost during a read.</source>
        <translation>Das Gerät war nicht erreichbar, oder die Verbindung ging beim Lesen verloren.</translation>
    </message>
    <message>
        <source>The device refused the request; it changed nothing.</source>
        <translation>Das Gerät hat die Anfrage abgelehnt; es hat nichts geändert.</translation>
    </message>
    <message>
        <source>A read was not answered in time.</source>
        <translation>Eine lesende Anfrage wurde nicht rechtzeitig beantwortet.</translation>
    </message>
    <message>
        <source>A write was not answered: the device may have carried it out.</source>
        <translation>Eine schreibende Anfrage wurde nicht beantwortet: Das Gerät hat sie möglicherweise ausgeführt.</translation>
    </message>
    <message>
        <source>Standard output could not be written.</source>
        <translation>Die Standardausgabe konnte nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>The command was interrupted by a signal.</source>
        <translation>Der Befehl wurde durch ein Signal unterbrochen.</translation>
    </message>
    <message>
        <source>unknown command, or the device does not support it with this type</source>
        <translation>unbekannter Befehl, oder das Gerät unterstützt ihn mit diesem Typ nicht</translation>
    </message>
    <message>
        <source>the command does not accept this body</source>
        <translation>der Befehl nimmt diesen Inhalt nicht an</translation>
    </message>
    <message>
        <source>the body or the filters name an object that does not exist</source>
        <translation>der Inhalt oder die Filter nennen ein Objekt, das es nicht gibt</translation>
    </message>
    <message>
        <source>a value is out of range</source>
        <translation>ein Wert liegt außerhalb seines Bereichs</translation>
    </message>
    <message>
        <source>not the expected packet of a split exchange</source>
        <translation>nicht das erwartete Paket eines geteilten Austauschs</translation>
    </message>
    <message>
        <source>the answer whose further packet was requested is not kept</source>
        <translation>die Antwort, deren weiteres Paket angefordert wurde, wird nicht aufbewahrt</translation>
    </message>
    <message>
        <source>the packet, or the whole of a split write, is longer than the device accepts</source>
        <translation>das Paket oder der ganze geteilte Schreibvorgang ist länger, als das Gerät annimmt</translation>
    </message>
    <message>
        <source>not possible now, for example because of other work or of a limit</source>
        <translation>jetzt nicht möglich, zum Beispiel wegen anderer Arbeit oder einer Grenze</translation>
    </message>
    <message>
        <source>length or hash of a file&apos;s content differ from those announced</source>
        <translation>Länge oder Hash des Dateiinhalts weichen von den angekündigten ab</translation>
    </message>
    <message>
        <source>storage is full or has failed</source>
        <translation>der Speicher ist voll oder ausgefallen</translation>
    </message>
    <message>
        <source>another client holds control of the device</source>
        <translation>ein anderer Client hat die Steuerung des Geräts</translation>
    </message>
    <message>
        <source>the device&apos;s data was changed by another client: synchronise first</source>
        <translation>die Daten des Geräts wurden von einem anderen Client geändert: zuerst synchronisieren</translation>
    </message>
</context>
<context>
    <name>Help</name>
    <message>
        <source>Usage: %1</source>
        <translation>Aufruf: %1</translation>
    </message>
    <message>
        <source>Show the help.</source>
        <translation>Die Hilfe anzeigen.</translation>
    </message>
    <message>
        <source>Show the version of the program.</source>
        <translation>Die Version des Programms anzeigen.</translation>
    </message>
    <message>
        <source>Commands:</source>
        <translation>Befehle:</translation>
    </message>
    <message>
        <source>Options:</source>
        <translation>Optionen:</translation>
    </message>
    <message>
        <source>Exit status:</source>
        <translation>Rückgabewert:</translation>
    </message>
    <message>
        <source>Options of the command:</source>
        <translation>Optionen des Befehls:</translation>
    </message>
    <message>
        <source>Options of all commands:</source>
        <translation>Optionen aller Befehle:</translation>
    </message>
    <message>
        <source>%1.</source>
        <comment>summary</comment>
        <translation>%1.</translation>
    </message>
</context>
<context>
    <name>Sim</name>
    <message>
        <source>expected a number from %1 to %2</source>
        <translation>Zahl von %1 bis %2 erwartet</translation>
    </message>
    <message>
        <source>expected %1 hexadecimal digits</source>
        <translation>%1 hexadezimale Ziffern erwartet</translation>
    </message>
    <message>
        <source>expected an IP address</source>
        <translation>IP-Adresse erwartet</translation>
    </message>
    <message>
        <source>A simulated video processor, for tests and demonstrations.</source>
        <translation>Ein simulierter Videoprozessor, für Tests und Vorführungen.</translation>
    </message>
    <message>
        <source>Console, one command per line on standard input or on the control port:</source>
        <translation>Konsole, ein Befehl je Zeile auf der Standardeingabe oder dem Konsolenport:</translation>
    </message>
    <message>
        <source>help, quit (standard input only)</source>
        <translation>help, quit (nur Standardeingabe)</translation>
    </message>
    <message>
        <source>RULE is %1. Faults:</source>
        <translation>RULE ist %1. Fehler:</translation>
    </message>
    <message>
        <source>Scenarios: %1.</source>
        <translation>Szenarien: %1.</translation>
    </message>
    <message>
        <source>Do not answer discovery requests.</source>
        <translation>Suchanfragen nicht beantworten.</translation>
    </message>
    <message>
        <source>Log each exchange on standard error.</source>
        <translation>Jeden Austausch auf der Standardfehlerausgabe protokollieren.</translation>
    </message>
    <message>
        <source>Log each exchange with its bodies.</source>
        <translation>Jeden Austausch mit seinen Inhalten protokollieren.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a valid value for --%2%3.</source>
        <translation>„%1“ ist kein gültiger Wert für --%2%3.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an option.</source>
        <translation>„%1“ ist keine Option.</translation>
    </message>
    <message>
        <source>The device has ended.</source>
        <translation>Das Gerät wurde beendet.</translation>
    </message>
    <message>
        <source>The device cannot listen.</source>
        <translation>Das Gerät kann keine Verbindungen annehmen.</translation>
    </message>
    <message>
        <source>The command line is not valid.</source>
        <translation>Die Befehlszeile ist ungültig.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a valid %2 (%3)</source>
        <translation>„%1“ ist kein gültiger Wert für %2 (%3)</translation>
    </message>
    <message>
        <source>expected a number</source>
        <translation>Zahl erwartet</translation>
    </message>
    <message>
        <source>no such object</source>
        <translation>dieses Objekt gibt es nicht</translation>
    </message>
    <message>
        <source>timing not supported</source>
        <translation>Timing nicht unterstützt</translation>
    </message>
    <message>
        <source>unknown command: %1</source>
        <translation>unbekannter Befehl: %1</translation>
    </message>
    <message>
        <source>usage: %1 %2</source>
        <translation>Aufruf: %1 %2</translation>
    </message>
    <message>
        <source>&quot;repeat&quot; must be the last line</source>
        <translation>„repeat“ muss die letzte Zeile sein</translation>
    </message>
    <message>
        <source>usage: wait MILLISECONDS</source>
        <translation>Aufruf: wait MILLISECONDS</translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>a scenario that repeats needs a pause (wait MILLISECONDS)</source>
        <translation>ein Szenario, das sich wiederholt, braucht eine Pause (wait MILLISECONDS)</translation>
    </message>
    <message>
        <source>cannot read it: %1; the scenarios of the program are %2</source>
        <translation>es kann nicht gelesen werden: %1; die Szenarien des Programms sind %2</translation>
    </message>
    <message>
        <source>unknown fault: &quot;%1&quot;</source>
        <translation>unbekannter Fehler: „%1“</translation>
    </message>
    <message>
        <source>%1 takes a number from %2 to %3</source>
        <translation>%1 erwartet eine Zahl von %2 bis %3</translation>
    </message>
    <message>
        <source>%1 takes no value</source>
        <translation>%1 erwartet keinen Wert</translation>
    </message>
    <message>
        <source>unknown limit: &quot;%1&quot;</source>
        <translation>unbekannte Grenze: „%1“</translation>
    </message>
    <message>
        <source>%1 is given twice</source>
        <translation>%1 ist doppelt angegeben</translation>
    </message>
    <message>
        <source>the identity answer has no status</source>
        <translation>die Identitätsantwort hat keinen Status</translation>
    </message>
    <message>
        <source>cannot listen for discovery requests on %1: %2</source>
        <translation>Suchanfragen können auf %1 nicht empfangen werden: %2</translation>
    </message>
    <message>
        <source>cannot listen on %1: %2</source>
        <translation>auf %1 können keine Verbindungen angenommen werden: %2</translation>
    </message>
    <message>
        <source>the scenario &quot;%1&quot; is not valid: %2</source>
        <translation>das Szenario „%1“ ist ungültig: %2</translation>
    </message>
    <message>
        <source>cannot create the folder %1</source>
        <translation>der Ordner %1 kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>%1 is damaged: %2</source>
        <translation>%1 ist beschädigt: %2</translation>
    </message>
    <message>
        <source>the saved setup is damaged: %1</source>
        <translation>die gespeicherte Einstellung ist beschädigt: %1</translation>
    </message>
    <message>
        <source>Listen on ADDRESS (127.0.0.1).</source>
        <translation>Auf ADDRESS Verbindungen annehmen (127.0.0.1).</translation>
    </message>
    <message>
        <source>Listen on PORT (6630); 0: any free port.</source>
        <translation>Auf PORT Verbindungen annehmen (6630); 0: ein freier Port.</translation>
    </message>
    <message>
        <source>Console port, for this machine only; 0: any free port.</source>
        <translation>Konsolenport, nur für diesen Rechner; 0: ein freier Port.</translation>
    </message>
    <message>
        <source>Answer discovery requests on this UDP port; 0: any free port. On a loopback address 6631 by default.</source>
        <translation>Suchanfragen auf diesem UDP-Port beantworten; 0: ein freier Port. Bei einer Loopback-Adresse ist 6631 vorgegeben.</translation>
    </message>
    <message>
        <source>Device name.</source>
        <translation>Name des Geräts.</translation>
    </message>
    <message>
        <source>Serial number, 16 hexadecimal digits.</source>
        <translation>Seriennummer, 16 hexadezimale Ziffern.</translation>
    </message>
    <message>
        <source>MAC address, 12 hexadecimal digits.</source>
        <translation>MAC-Adresse, 12 hexadezimale Ziffern.</translation>
    </message>
    <message>
        <source>Model ID (0x7701).</source>
        <translation>Modell-ID (0x7701).</translation>
    </message>
    <message>
        <source>Longest body of a packet in either direction (65536).</source>
        <translation>Längster Inhalt eines Pakets in beiden Richtungen (65536).</translation>
    </message>
    <message>
        <source>Delay each answer by MS milliseconds (0).</source>
        <translation>Jede Antwort um MS Millisekunden verzögern (0).</translation>
    </message>
    <message>
        <source>Clock speed of the device (100); 0: moved by &quot;pass&quot;.</source>
        <translation>Geschwindigkeit der Geräteuhr (100); 0: von „pass“ bewegt.</translation>
    </message>
    <message>
        <source>Keep files and the saved setup in the folder DIR.</source>
        <translation>Dateien und die gespeicherte Einstellung im Ordner DIR halten.</translation>
    </message>
    <message>
        <source>Inject a fault (see below); may be given several times.</source>
        <translation>Einen Fehler einbauen (siehe unten); mehrfach möglich.</translation>
    </message>
    <message>
        <source>Seed for random faults (1).</source>
        <translation>Startwert für zufällige Fehler (1).</translation>
    </message>
    <message>
        <source>Carry out a scenario (see below), or the one in the file SCENE.</source>
        <translation>Ein Szenario ausführen (siehe unten) oder das in der Datei SCENE.</translation>
    </message>
    <message>
        <source>Input connectors (8), 1 to 4096.</source>
        <translation>Eingangsanschlüsse (8), 1 bis 4096.</translation>
    </message>
    <message>
        <source>Output connectors (8), 1 to 4096.</source>
        <translation>Ausgangsanschlüsse (8), 1 bis 4096.</translation>
    </message>
    <message>
        <source>Screens of all kinds (4), 0 to 255.</source>
        <translation>Screens aller Arten (4), 0 bis 255.</translation>
    </message>
    <message>
        <source>Layers in each of the two scenes of a screen (4), 0 to 256.</source>
        <translation>Layer in jeder der beiden Szenen eines Screens (4), 0 bis 256.</translation>
    </message>
    <message>
        <source>pulls the cable of an input</source>
        <translation>zieht das Kabel eines Eingangs</translation>
    </message>
    <message>
        <source>plugs a card (1) or pulls it (0)</source>
        <translation>steckt eine Karte (1) oder zieht sie (0)</translation>
    </message>
    <message>
        <source>0 or 1</source>
        <translation>0 oder 1</translation>
    </message>
    <message>
        <source>sets the colour depth of an input&apos;s source</source>
        <translation>setzt die Farbtiefe der Quelle eines Eingangs</translation>
    </message>
    <message>
        <source>0 to 65535</source>
        <translation>0 bis 65535</translation>
    </message>
    <message>
        <source>sets (1) or removes (0) the genlock signal</source>
        <translation>setzt (1) oder entfernt (0) das Genlock-Signal</translation>
    </message>
    <message>
        <source>names a group, and adds it if it is new</source>
        <translation>benennt eine Gruppe und fügt sie hinzu, wenn sie neu ist</translation>
    </message>
    <message>
        <source>advances the device&apos;s clock</source>
        <translation>stellt die Geräteuhr vor</translation>
    </message>
    <message>
        <source>0 or more</source>
        <translation>0 oder mehr</translation>
    </message>
    <message>
        <source>makes a power supply work (1) or fail (0)</source>
        <translation>lässt ein Netzteil arbeiten (1) oder ausfallen (0)</translation>
    </message>
    <message>
        <source>switches a pair of interfaces to this one</source>
        <translation>schaltet ein Schnittstellenpaar auf diese um</translation>
    </message>
    <message>
        <source>makes the upgrade fail at this progress</source>
        <translation>lässt die Aktualisierung bei diesem Fortschritt fehlschlagen</translation>
    </message>
    <message>
        <source>0 to 100</source>
        <translation>0 bis 100</translation>
    </message>
    <message>
        <source>switches the device off (0) or on (1)</source>
        <translation>schaltet das Gerät aus (0) oder ein (1)</translation>
    </message>
    <message>
        <source>sets the timing of an input&apos;s source</source>
        <translation>setzt das Timing der Quelle eines Eingangs</translation>
    </message>
    <message>
        <source>injects a fault from now on</source>
        <translation>baut ab jetzt einen Fehler ein</translation>
    </message>
    <message>
        <source>lists the rules with their remaining counts</source>
        <translation>listet die Regeln mit der jeweils verbleibenden Anzahl auf</translation>
    </message>
    <message>
        <source>0x1 to 0xFFFF, or the name of a command</source>
        <translation>0x1 bis 0xFFFF oder der Name eines Befehls</translation>
    </message>
    <message>
        <source>0 to 4294967295</source>
        <translation>0 bis 4294967295</translation>
    </message>
    <message>
        <source>1 to 4294967295</source>
        <translation>1 bis 4294967295</translation>
    </message>
    <message>
        <source>1 to 100</source>
        <translation>1 bis 100</translation>
    </message>
    <message>
        <source>refuses the request with this status</source>
        <translation>lehnt die Anfrage mit diesem Status ab</translation>
    </message>
    <message>
        <source>answers later</source>
        <translation>antwortet später</translation>
    </message>
    <message>
        <source>never answers</source>
        <translation>antwortet nie</translation>
    </message>
    <message>
        <source>does not carry the request out and never answers</source>
        <translation>führt die Anfrage nicht aus und antwortet nie</translation>
    </message>
    <message>
        <source>sends half of the answer and never the rest</source>
        <translation>sendet die halbe Antwort und nie den Rest</translation>
    </message>
    <message>
        <source>does not carry the request out and ends the connection</source>
        <translation>führt die Anfrage nicht aus und beendet die Verbindung</translation>
    </message>
    <message>
        <source>ends the connection before the answer</source>
        <translation>beendet die Verbindung vor der Antwort</translation>
    </message>
    <message>
        <source>ends the connection after half of the answer</source>
        <translation>beendet die Verbindung nach der halben Antwort</translation>
    </message>
    <message>
        <source>ends the connection after the answer</source>
        <translation>beendet die Verbindung nach der Antwort</translation>
    </message>
    <message>
        <source>answers with another flag (position 0)</source>
        <translation>antwortet mit anderer Kennung (Position 0)</translation>
    </message>
    <message>
        <source>answers with another version (2)</source>
        <translation>antwortet mit anderer Version (2)</translation>
    </message>
    <message>
        <source>answers with a tag that is not in use (3)</source>
        <translation>antwortet mit einem unbenutzten Tag (3)</translation>
    </message>
    <message>
        <source>answers with a body length that is too large by this (4)</source>
        <translation>antwortet mit einer um so viel zu großen Inhaltslänge (4)</translation>
    </message>
    <message>
        <source>answers with a checksum index that is not defined (9)</source>
        <translation>antwortet mit einem nicht definierten Prüfsummenindex (9)</translation>
    </message>
    <message>
        <source>answers with a kind that is not defined (10)</source>
        <translation>antwortet mit einer nicht definierten Art (10)</translation>
    </message>
    <message>
        <source>answers with another checksum of the head (12)</source>
        <translation>antwortet mit anderer Prüfsumme des Kopfs (12)</translation>
    </message>
    <message>
        <source>answers with another checksum of the body (14)</source>
        <translation>antwortet mit anderer Prüfsumme des Inhalts (14)</translation>
    </message>
    <message>
        <source>answers with another stream (18)</source>
        <translation>antwortet mit anderem Stream (18)</translation>
    </message>
    <message>
        <source>answers with another type (20)</source>
        <translation>antwortet mit anderem Typ (20)</translation>
    </message>
    <message>
        <source>answers with another function code (29)</source>
        <translation>antwortet mit anderem Funktionscode (29)</translation>
    </message>
    <message>
        <source>answers with this number of packets (21)</source>
        <translation>antwortet mit dieser Anzahl von Paketen (21)</translation>
    </message>
    <message>
        <source>sends the next packet first, then this one</source>
        <translation>sendet zuerst das nächste Paket, dann dieses</translation>
    </message>
    <message>
        <source>answers twice</source>
        <translation>antwortet zweimal</translation>
    </message>
    <message>
        <source>answers an earlier request without an answer</source>
        <translation>beantwortet eine frühere, unbeantwortete Anfrage</translation>
    </message>
    <message>
        <source>sends this part of the body, 0: half, in a valid frame</source>
        <translation>sendet diesen Teil des Inhalts, 0: die Hälfte, in einem gültigen Frame</translation>
    </message>
    <message>
        <source>replaces bytes of the body by #, in a valid frame</source>
        <translation>ersetzt Bytes des Inhalts durch #, in einem gültigen Frame</translation>
    </message>
    <message>
        <source>does not carry the request out and restarts</source>
        <translation>führt die Anfrage nicht aus und startet neu</translation>
    </message>
    <message>
        <source>sends reports before the answer, up to 100000</source>
        <translation>sendet vor der Antwort Meldungen, bis zu 100000</translation>
    </message>
    <message>
        <source>it was not written by this version of tavorosim</source>
        <translation>es wurde nicht von dieser Version von tavorosim geschrieben</translation>
    </message>
    <message>
        <source>another device uses it</source>
        <translation>ein anderes Gerät verwendet es</translation>
    </message>
    <message>
        <source>cannot use %1: %2</source>
        <translation>%1 kann nicht verwendet werden: %2</translation>
    </message>
    <message>
        <source>removes all rules and does what release does</source>
        <translation>entfernt alle Regeln und tut, was release tut</translation>
    </message>
    <message>
        <source>sends held answers and resumes reading</source>
        <translation>sendet zurückgehaltene Antworten und liest weiter</translation>
    </message>
    <message>
        <source>usage: fault add RULE, fault clear, fault list, fault release</source>
        <translation>Aufruf: fault add RULE, fault clear, fault list, fault release</translation>
    </message>
    <message>
        <source>answers after &quot;fault release&quot;</source>
        <translation>antwortet nach „fault release“</translation>
    </message>
    <message>
        <source>neither reads nor answers for this time, 0: until &quot;fault release&quot;</source>
        <translation>liest und antwortet so lange nicht, 0: bis „fault release“</translation>
    </message>
</context>
<context>
    <name>Tavoro::Control::ControlHelper</name>
    <message>
        <source>hardware error:%1</source>
        <translation>Hardwarefehler:%1</translation>
    </message>
</context>
<context>
    <name>Tavoro::Gate::BrokerConnection</name>
    <message>
        <source>not connected yet</source>
        <translation>noch nicht verbunden</translation>
    </message>
</context>
<context>
    <name>Tavoro::Gate::DeviceCalls</name>
    <message>
        <source>the correlation data belongs to another call</source>
        <translation>die Korrelationsdaten gehören zu einem anderen Aufruf</translation>
    </message>
    <message>
        <source>too many calls wait</source>
        <translation>zu viele Aufrufe warten</translation>
    </message>
    <message>
        <source>the message has expired</source>
        <translation>die Nachricht ist abgelaufen</translation>
    </message>
    <message>
        <source>the broker does not permit the gateway&apos;s claims</source>
        <translation>der Broker erlaubt die Ansprüche des Gateways nicht</translation>
    </message>
    <message>
        <source>no gateway worked for the device in time</source>
        <translation>kein Gateway hat rechtzeitig für das Gerät gearbeitet</translation>
    </message>
    <message>
        <source>the gateway that works for the device has not received the call</source>
        <translation>das Gateway, das für das Gerät arbeitet, hat den Aufruf nicht erhalten</translation>
    </message>
</context>
<context>
    <name>Tavoro::Gate::DevicePresence</name>
    <message>
        <source>the gateway was stopped</source>
        <translation>das Gateway wurde gestoppt</translation>
    </message>
</context>
<context>
    <name>Tavoro::Gate::MosquittoClient</name>
    <message>
        <source>the broker does not answer</source>
        <translation>der Broker antwortet nicht</translation>
    </message>
    <message>
        <source>the certificates cannot be used: %1</source>
        <translation>die Zertifikate können nicht verwendet werden: %1</translation>
    </message>
    <message>
        <source>the gateway stops</source>
        <translation>das Gateway wird beendet</translation>
    </message>
</context>
</TS>
