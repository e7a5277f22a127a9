<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>Ctl</name>
    <message>
        <source>the closing quote is missing</source>
        <translation>le guillemet fermant manque</translation>
    </message>
    <message>
        <source>expected a space after the closing quote</source>
        <translation>espace attendue après le guillemet fermant</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a file type; use 0 to %2 or one of: %3</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un type de fichier&#xa0;; utilisez 0 à %2 ou&#xa0;: %3</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a valid file ID (0 to %2)</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un ID de fichier valide (0 à %2)</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number of milliseconds above 0</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un nombre de millisecondes supérieur à 0</translation>
    </message>
    <message>
        <source>%1 Did you mean --%2?</source>
        <translation>%1 Vouliez-vous dire --%2&#xa0;?</translation>
    </message>
    <message>
        <source>%1 takes %2</source>
        <translation>%1 attend %2</translation>
    </message>
    <message>
        <source>expected a command; --help lists all commands</source>
        <translation>commande attendue&#xa0;; --help liste toutes les commandes</translation>
    </message>
    <message>
        <source>--merge goes neither with --defaults nor with --dry-run</source>
        <translation>--merge ne va ni avec --defaults ni avec --dry-run</translation>
    </message>
    <message>
        <source>; give them, or send their defaults with --defaults</source>
        <translation>&#xa0;; indiquez-les, ou envoyez leurs valeurs par défaut avec --defaults</translation>
    </message>
    <message>
        <source>--merge needs a write and its record</source>
        <translation>--merge demande une écriture et son enregistrement</translation>
    </message>
    <message>
        <source>expected an operation</source>
        <translation>opération attendue</translation>
    </message>
    <message>
        <source>The device does not say which client holds control.</source>
        <translation>L’appareil n’indique pas quel client détient le contrôle.</translation>
    </message>
    <message>
        <source>nobody</source>
        <translation>personne</translation>
    </message>
    <message>
        <source>This client holds control until Ctrl-C.</source>
        <translation>Ce client garde le contrôle jusqu’à Ctrl+C.</translation>
    </message>
    <message>
        <source>Control ended with the connection.</source>
        <translation>Le contrôle a pris fin avec la connexion.</translation>
    </message>
    <message>
        <source>Another client has taken control.</source>
        <translation>Un autre client a pris le contrôle.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not who, take, release or force</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas who, take, release ou force</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not ADDRESS[:PORT]</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas ADDRESS[:PORT]</translation>
    </message>
    <message>
        <source>No device answered.</source>
        <translation>Aucun appareil n’a répondu.</translation>
    </message>
    <message>
        <source>TYPE ID NAME BYTES HASH PIXELS</source>
        <translation>TYPE ID NOM OCTETS HACHAGE PIXELS</translation>
    </message>
    <message>
        <source>unknown command &quot;%1&quot;%2; --help lists all commands</source>
        <translation>commande inconnue «&#xa0;%1&#xa0;»%2&#xa0;; --help liste toutes les commandes</translation>
    </message>
    <message>
        <source>SLOT TYPE MODEL MEASUREMENT VALUE MIN MAX STATE</source>
        <translation>EMPLACEMENT TYPE MODÈLE MESURE VALEUR MIN MAX ÉTAT</translation>
    </message>
    <message>
        <source>good</source>
        <translation>bon</translation>
    </message>
    <message>
        <source>faulty</source>
        <translation>défectueux</translation>
    </message>
    <message>
        <source>SLOT TYPE MODEL SECTION VERSION</source>
        <translation>EMPLACEMENT TYPE MODÈLE SECTION VERSION</translation>
    </message>
    <message>
        <source>device</source>
        <translation>appareil</translation>
    </message>
    <message>
        <source>The self check reports a fault in %1.</source>
        <translation>L’autotest signale un défaut dans %1.</translation>
    </message>
    <message>
        <source>%1 cannot be merged: no read returns what it writes</source>
        <translation>%1 ne peut pas être complété&#xa0;: aucune lecture ne renvoie ce qu’elle écrit</translation>
    </message>
    <message>
        <source>%1: the device has no object with this identity</source>
        <translation>%1&#xa0;: l’appareil n’a pas d’objet avec cette identité</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a valid screen ID (0 to 255)</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un ID d’écran valide (0 à 255)</translation>
    </message>
    <message>
        <source>The device has no screen %1.</source>
        <translation>L’appareil n’a pas d’écran %1.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un nombre</translation>
    </message>
    <message>
        <source>shows and controls video processors from a terminal</source>
        <translation>affiche et contrôle des processeurs vidéo depuis un terminal</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a kind of files; use all, none or some of: %2</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas une sorte de fichiers&#xa0;; utilisez all, none ou certains de&#xa0;: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not WIDTHxHEIGHT</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas WIDTHxHEIGHT</translation>
    </message>
    <message>
        <source>%1 has %2 bytes. The device could not return more than %3: a client takes at most %4 packets, and the packets of this device have %5 bytes.</source>
        <translation>%1 a %2 octets. L’appareil ne pourrait pas en renvoyer plus de %3&#xa0;: un client accepte au plus %4 paquets, et les paquets de cet appareil ont %5 octets.</translation>
    </message>
    <message>
        <source>The device has the file %1 %2 (&quot;%3&quot;). Replace it with --force, or leave --id out.</source>
        <translation>L’appareil a déjà le fichier %1 %2 («&#xa0;%3&#xa0;»). Remplacez-le avec --force, ou omettez --id.</translation>
    </message>
    <message>
        <source>The device has no free ID for a file of the type %1.</source>
        <translation>L’appareil n’a plus d’ID libre pour un fichier du type %1.</translation>
    </message>
    <message>
        <source>%1: code %2, type %3, filters %4, %5 bytes</source>
        <translation>%1&#xa0;: code %2, type %3, filtres %4, %5 octets</translation>
    </message>
    <message>
        <source>Cannot read %1: %2.</source>
        <translation>Lecture de %1 impossible&#xa0;: %2.</translation>
    </message>
    <message>
        <source>The device differs from the document: </source>
        <translation>L’appareil diffère du document&#xa0;: </translation>
    </message>
    <message>
        <source>The device could not be read completely.</source>
        <translation>L’appareil n’a pas pu être lu entièrement.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not HOST[:PORT]</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas HOST[:PORT]</translation>
    </message>
    <message>
        <source>%1 is empty</source>
        <translation>%1 est vide</translation>
    </message>
    <message>
        <source>unknown operation &quot;%1&quot;%2; &quot;tavoroctl list&quot; lists all operations</source>
        <translation>opération inconnue «&#xa0;%1&#xa0;»%2&#xa0;; «&#xa0;tavoroctl list&#xa0;» liste toutes les opérations</translation>
    </message>
    <message>
        <source>The device continues with the upgrade.</source>
        <translation>L’appareil poursuit la mise à jour.</translation>
    </message>
    <message>
        <source>slot %1, type %2</source>
        <translation>emplacement %1, type %2</translation>
    </message>
    <message>
        <source>upgrade</source>
        <translation>mise à jour</translation>
    </message>
    <message>
        <source>The upgrade failed at %1 %.</source>
        <translation>La mise à jour a échoué à %1 %.</translation>
    </message>
    <message>
        <source>The upgrade is done.</source>
        <translation>La mise à jour est terminée.</translation>
    </message>
    <message>
        <source>written</source>
        <translation>écrit</translation>
    </message>
    <message>
        <source>failed with result %1</source>
        <translation>échec, résultat %1</translation>
    </message>
    <message>
        <source>Interrupted.</source>
        <translation>Interrompu.</translation>
    </message>
    <message>
        <source>Following the upgrade that is running on the device.</source>
        <translation>Suivi de la mise à jour en cours sur l’appareil.</translation>
    </message>
    <message>
        <source>Watching %1; press Ctrl-C to stop.</source>
        <translation>Observation de %1&#xa0;; Ctrl+C pour arrêter.</translation>
    </message>
    <message>
        <source>Connection lost.</source>
        <translation>Connexion perdue.</translation>
    </message>
    <message>
        <source>Reconnected.</source>
        <translation>Reconnecté.</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>rien</translation>
    </message>
    <message>
        <source>interface %1</source>
        <translation>interface %1</translation>
    </message>
    <message>
        <source>screen %1</source>
        <translation>écran %1</translation>
    </message>
    <message>
        <source>screen %1, %2, layer %3 (type %4)</source>
        <translation>écran %1, %2, couche %3 (type %4)</translation>
    </message>
    <message>
        <source>file %1</source>
        <translation>fichier %1</translation>
    </message>
    <message>
        <source>transfer of type %1 at %2 %, status %3</source>
        <translation>transfert de type %1 à %2 %, état %3</translation>
    </message>
    <message>
        <source>new</source>
        <translation>nouveau</translation>
    </message>
    <message>
        <source>gone</source>
        <translation>disparu</translation>
    </message>
    <message>
        <source>interface %1.%2.%3</source>
        <translation>interface %1.%2.%3</translation>
    </message>
    <message>
        <source>file %1:%2</source>
        <translation>fichier %1:%2</translation>
    </message>
    <message>
        <source>%1: unknown key &quot;%2&quot;%3</source>
        <translation>%1&#xa0;: clé inconnue «&#xa0;%2&#xa0;»%3</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a list</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas une liste</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an object</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un objet</translation>
    </message>
    <message>
        <source>element %1 of &quot;%2&quot; does not identify an object</source>
        <translation>l’élément %1 de «&#xa0;%2&#xa0;» n’identifie pas d’objet</translation>
    </message>
    <message>
        <source>%1 is in the document twice</source>
        <translation>%1 figure deux fois dans le document</translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation>ligne %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>&quot;formatVersion&quot; is not %1</source>
        <translation>«&#xa0;formatVersion&#xa0;» n’est pas %1</translation>
    </message>
    <message>
        <source>the document</source>
        <translation>le document</translation>
    </message>
    <message>
        <source>DEVICE</source>
        <translation>APPAREIL</translation>
    </message>
    <message>
        <source>status</source>
        <translation>état</translation>
    </message>
    <message>
        <source>swap</source>
        <translation>permutation</translation>
    </message>
    <message>
        <source>genlock signal</source>
        <translation>signal Genlock</translation>
    </message>
    <message>
        <source>power supplies</source>
        <translation>alimentations</translation>
    </message>
    <message>
        <source>cards</source>
        <translation>cartes</translation>
    </message>
    <message>
        <source>groups</source>
        <translation>groupes</translation>
    </message>
    <message>
        <source>INTERFACE TYPE NAME TIMING DEPTH HDCP</source>
        <translation>INTERFACE TYPE NOM TIMING PROFONDEUR HDCP</translation>
    </message>
    <message>
        <source>SCREEN NAME WINDOW FREEZE FTB T-BAR OUTPUTS</source>
        <translation>ÉCRAN NOM FENÊTRE GEL FTB T-BAR SORTIES</translation>
    </message>
    <message>
        <source>LAYER SCREEN SCENE TYPE Z NAME SOURCE WINDOW OPACITY</source>
        <translation>COUCHE ÉCRAN SCÈNE TYPE Z NOM SOURCE FENÊTRE OPACITÉ</translation>
    </message>
    <message>
        <source>Cannot write standard output: %1.</source>
        <translation>Écriture sur la sortie standard impossible&#xa0;: %1.</translation>
    </message>
    <message>
        <source>line %1 of the batch: </source>
        <translation>ligne %1 du lot&#xa0;: </translation>
    </message>
    <message>
        <source>%1 (type %2)</source>
        <translation>%1 (type %2)</translation>
    </message>
    <message>
        <source>%1x%2 at %3,%4</source>
        <translation>%1x%2 en %3,%4</translation>
    </message>
    <message>
        <source>no signal</source>
        <translation>pas de signal</translation>
    </message>
    <message>
        <source>preview</source>
        <translation>prévisualisation</translation>
    </message>
    <message>
        <source>programme</source>
        <translation>programme</translation>
    </message>
    <message>
        <source>slot %1</source>
        <translation>emplacement %1</translation>
    </message>
    <message>
        <source>%1 connectors</source>
        <translation>%1 connecteurs</translation>
    </message>
    <message>
        <source>online</source>
        <translation>en ligne</translation>
    </message>
    <message>
        <source>offline</source>
        <translation>hors ligne</translation>
    </message>
    <message>
        <source>works</source>
        <translation>en marche</translation>
    </message>
    <message>
        <source>fails</source>
        <translation>en panne</translation>
    </message>
    <message>
        <source>on screen %1</source>
        <translation>sur l’écran %1</translation>
    </message>
    <message>
        <source>layer %1</source>
        <translation>couche %1</translation>
    </message>
    <message>
        <source>opacity %1</source>
        <translation>opacité %1</translation>
    </message>
    <message>
        <source>frozen</source>
        <translation>figé</translation>
    </message>
    <message>
        <source>faded to black</source>
        <translation>fondu au noir</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 octets</translation>
    </message>
    <message>
        <source>files</source>
        <translation>fichiers</translation>
    </message>
    <message>
        <source>%1  %2  MAC %3  serial number %4  model %5  %6</source>
        <translation>%1  %2  MAC %3  numéro de série %4  modèle %5  %6</translation>
    </message>
    <message>
        <source>inputs</source>
        <translation>entrées</translation>
    </message>
    <message>
        <source>outputs</source>
        <translation>sorties</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>reste %1</translation>
    </message>
    <message>
        <source>a status that only this device defines</source>
        <translation>un état que seul cet appareil définit</translation>
    </message>
    <message>
        <source>The devices at %1 and %2 report the same identity; a batch cannot use both.</source>
        <translation>Les appareils aux adresses %1 et %2 indiquent la même identité&#xa0;; un lot ne peut pas utiliser les deux.</translation>
    </message>
    <message>
        <source>standard input</source>
        <translation>entrée standard</translation>
    </message>
    <message>
        <source>%1 is too long: a file has at most %2 bytes.</source>
        <translation>%1 est trop long&#xa0;: un fichier a au plus %2 octets.</translation>
    </message>
    <message>
        <source>standard output</source>
        <translation>sortie standard</translation>
    </message>
    <message>
        <source>Cannot write %1: %2.</source>
        <translation>Écriture de %1 impossible&#xa0;: %2.</translation>
    </message>
    <message>
        <source>Received %1 bytes, but the device announced %2.</source>
        <translation>%1 octets reçus, mais l’appareil en a annoncé %2.</translation>
    </message>
    <message>
        <source>The checksum of the received file does not match the one the device reports.</source>
        <translation>La somme de contrôle du fichier reçu ne correspond pas à celle que l’appareil indique.</translation>
    </message>
    <message>
        <source>Received %1 bytes in %2 packets, but the device announced %3 bytes.</source>
        <translation>%1 octets reçus en %2 paquets, mais l’appareil a annoncé %3 octets.</translation>
    </message>
    <message>
        <source>The device may have the file.</source>
        <translation>L’appareil a peut-être le fichier.</translation>
    </message>
    <message>
        <source>Show this help.</source>
        <translation>Afficher cette aide.</translation>
    </message>
    <message>
        <source>Print JSON, also for errors.</source>
        <translation>Afficher du JSON, aussi pour les erreurs.</translation>
    </message>
    <message>
        <source>Print only answers and errors.</source>
        <translation>N’afficher que les réponses et les erreurs.</translation>
    </message>
    <message>
        <source>Wait at most MS milliseconds for each answer (as long as the library waits, up to 200 s).</source>
        <translation>Attendre chaque réponse au plus MS millisecondes (autant que la bibliothèque, jusqu’à 200 s).</translation>
    </message>
    <message>
        <source>Wait MS milliseconds for a device to be ready (5000).</source>
        <translation>Attendre MS millisecondes qu’un appareil soit prêt (5000).</translation>
    </message>
    <message>
        <source>Show the log on standard error.</source>
        <translation>Afficher le journal sur la sortie d’erreur.</translation>
    </message>
    <message>
        <source>Show the version of the program.</source>
        <translation>Afficher la version du programme.</translation>
    </message>
    <message>
        <source>Print the writes as lines of a batch, and make none of them.</source>
        <translation>Afficher les écritures comme lignes d’un lot, sans en faire aucune.</translation>
    </message>
    <message>
        <source>Send missing keys of a record at their defaults.</source>
        <translation>Envoyer les clés manquantes d’un enregistrement à leurs valeurs par défaut.</translation>
    </message>
    <message>
        <source>Print the requests, and send nothing.</source>
        <translation>Afficher les requêtes, sans rien envoyer.</translation>
    </message>
    <message>
        <source>Send missing keys of a record as the device has them.</source>
        <translation>Envoyer les clés manquantes d’un enregistrement telles que l’appareil les a.</translation>
    </message>
    <message>
        <source>End after the first call that fails.</source>
        <translation>Terminer après le premier appel qui échoue.</translation>
    </message>
    <message>
        <source>Print the request, and send nothing.</source>
        <translation>Afficher la requête, sans rien envoyer.</translation>
    </message>
    <message>
        <source>Type of the file on the device (background).</source>
        <translation>Type du fichier sur l’appareil (background).</translation>
    </message>
    <message>
        <source>Replace a file that the device has.</source>
        <translation>Remplacer un fichier que l’appareil a déjà.</translation>
    </message>
    <message>
        <source>ID of the file on the device (a free one, which is printed).</source>
        <translation>ID du fichier sur l’appareil (un ID libre, qui est affiché).</translation>
    </message>
    <message>
        <source>Name of the file on the device (that of FILE).</source>
        <translation>Nom du fichier sur l’appareil (celui de FILE).</translation>
    </message>
    <message>
        <source>Size of an image in pixels.</source>
        <translation>Taille d’une image en pixels.</translation>
    </message>
    <message>
        <source>Restart the device afterwards, and wait until it is back.</source>
        <translation>Redémarrer ensuite l’appareil, et attendre son retour.</translation>
    </message>
    <message>
        <source>Type of the preset (screen-preset).</source>
        <translation>Type du préréglage (screen-preset).</translation>
    </message>
    <message>
        <source>Name of the preset (&quot;Preset ID&quot;).</source>
        <translation>Nom du préréglage («&#xa0;Preset ID&#xa0;»).</translation>
    </message>
    <message>
        <source>How to apply it, a number that the device defines (0).</source>
        <translation>Mode d’application, un nombre que l’appareil définit (0).</translation>
    </message>
    <message>
        <source>Type of the file (10).</source>
        <translation>Type du fichier (10).</translation>
    </message>
    <message>
        <source>Name of the project (&quot;Project ID&quot;).</source>
        <translation>Nom du projet («&#xa0;Project ID&#xa0;»).</translation>
    </message>
    <message>
        <source>Kinds of files that it contains, such as logo,preset; or none (all).</source>
        <translation>Sortes de fichiers qu’il contient, par exemple logo,preset&#xa0;; ou none (all).</translation>
    </message>
    <message>
        <source>Write the capture to OUT for Wireshark instead; - is stdout.</source>
        <translation>Écrire plutôt la capture dans OUT pour Wireshark&#xa0;; - désigne la sortie standard.</translation>
    </message>
    <message>
        <source>Writes to the device what differs in FILE, a setup that sync wrote; - is stdin.</source>
        <translation>Écrit sur l’appareil ce qui diffère dans FILE, une configuration écrite par sync&#xa0;; - désigne l’entrée standard.</translation>
    </message>
    <message>
        <source>Makes one call per line of standard input. Without HOST, each line begins with a host.</source>
        <translation>Fait un appel par ligne de l’entrée standard. Sans HOST, chaque ligne commence par un hôte.</translation>
    </message>
    <message>
        <source>Calls one operation: a write takes its record as JSON, a read its filters as numbers.</source>
        <translation>Appelle une opération&#xa0;: une écriture prend son enregistrement en JSON, une lecture ses filtres en nombres.</translation>
    </message>
    <message>
        <source>Shows which client holds control, holds it until Ctrl-C, or ends the control of another.</source>
        <translation>Indique quel client détient le contrôle, le garde jusqu’à Ctrl+C, ou met fin à celui d’un autre.</translation>
    </message>
    <message>
        <source>Shows what apply would change on the device; ends with 1 if it would change something.</source>
        <translation>Montre ce que apply changerait sur l’appareil&#xa0;; se termine par 1 s’il changerait quelque chose.</translation>
    </message>
    <message>
        <source>Lists the devices on the local network, or those that answer at ADDRESS.</source>
        <translation>Liste les appareils du réseau local, ou ceux qui répondent à ADDRESS.</translation>
    </message>
    <message>
        <source>Lists the files on the device.</source>
        <translation>Liste les fichiers de l’appareil.</translation>
    </message>
    <message>
        <source>Shows the help of the program or of a command.</source>
        <translation>Affiche l’aide du programme ou d’une commande.</translation>
    </message>
    <message>
        <source>Lists all operations or those of a class, or shows the record that OPERATION takes.</source>
        <translation>Liste toutes les opérations ou celles d’une classe, ou montre l’enregistrement attendu par OPERATION.</translation>
    </message>
    <message>
        <source>Applies a preset.</source>
        <translation>Applique un préréglage.</translation>
    </message>
    <message>
        <source>Stores the screens with these IDs as a preset; all screens without an ID.</source>
        <translation>Enregistre les écrans portant ces ID comme préréglage&#xa0;; tous les écrans sans ID.</translation>
    </message>
    <message>
        <source>Applies a project.</source>
        <translation>Applique un projet.</translation>
    </message>
    <message>
        <source>Stores all screens, with all files or some kinds of them, as a project.</source>
        <translation>Enregistre tous les écrans, avec tous les fichiers ou certaines sortes, comme projet.</translation>
    </message>
    <message>
        <source>Fetches a file from the device into FILE, completely or not at all; - is stdout.</source>
        <translation>Récupère un fichier de l’appareil dans FILE, entièrement ou pas du tout&#xa0;; - désigne la sortie standard.</translation>
    </message>
    <message>
        <source>Sends FILE to the device; - is standard input.</source>
        <translation>Envoie FILE à l’appareil&#xa0;; - désigne l’entrée standard.</translation>
    </message>
    <message>
        <source>Restarts the device.</source>
        <translation>Redémarre l’appareil.</translation>
    </message>
    <message>
        <source>Shows the connections and frames of a capture.</source>
        <translation>Affiche les connexions et les trames d’une capture.</translation>
    </message>
    <message>
        <source>Shows the measurements of the device; ends with 1 if one is out of its range.</source>
        <translation>Affiche les mesures de l’appareil&#xa0;; se termine par 1 si l’une est hors plage.</translation>
    </message>
    <message>
        <source>Shows the device, its interfaces, screens and layers as the device reports them.</source>
        <translation>Affiche l’appareil, ses interfaces, écrans et couches tels qu’il les indique.</translation>
    </message>
    <message>
        <source>Reads the whole device into the model and shows the model.</source>
        <translation>Lit tout l’appareil dans le modèle et affiche le modèle.</translation>
    </message>
    <message>
        <source>Starts an upgrade from a package on the device, or follows the running one.</source>
        <translation>Démarre une mise à jour depuis un paquet de l’appareil, ou suit celle en cours.</translation>
    </message>
    <message>
        <source>Shows the versions of the device and of its units.</source>
        <translation>Affiche les versions de l’appareil et de ses unités.</translation>
    </message>
    <message>
        <source>Reads the devices as sync does, then shows changes of their models until Ctrl-C.</source>
        <translation>Lit les appareils comme sync, puis montre les changements de leurs modèles jusqu’à Ctrl+C.</translation>
    </message>
    <message>
        <source>Success. Also an interrupted watch.</source>
        <translation>Succès. Aussi pour un watch interrompu.</translation>
    </message>
    <message>
        <source>Something else failed; for diff: there are differences.</source>
        <translation>Autre échec&#xa0;; pour diff&#xa0;: il y a des différences.</translation>
    </message>
    <message>
        <source>The command line or an input is not valid; nothing was sent for it.</source>
        <translation>La ligne de commande ou une entrée n’est pas valide&#xa0;; rien n’a été envoyé pour elle.</translation>
    </message>
    <message>
        <source>The device could not be reached, or the connection was lost during a read.</source>
        <translation>L’appareil était injoignable, ou la connexion a été perdue pendant une lecture.</translation>
    </message>
    <message>
        <source>The device refused the request; it changed nothing.</source>
        <translation>L’appareil a refusé la requête&#xa0;; il n’a rien changé.</translation>
    </message>
    <message>
        <source>A read was not answered in time.</source>
        <translation>Une lecture n’a pas reçu de réponse à temps.</translation>
    </message>
    <message>
        <source>A write was not answered: the device may have carried it out.</source>
        <translation>Une écriture n’a pas reçu de réponse&#xa0;: l’appareil l’a peut-être exécutée.</translation>
    </message>
    <message>
        <source>Standard output could not be written.</source>
        <translation>La sortie standard n’a pas pu être écrite.</translation>
    </message>
    <message>
        <source>The command was interrupted by a signal.</source>
        <translation>La commande a été interrompue par un signal.</translation>
    </message>
    <message>
        <source>unknown command, or the device does not support it with this type</source>
        <translation>commande inconnue, ou non prise en charge par l’appareil avec ce type</translation>
    </message>
    <message>
        <source>the command does not accept this body</source>
        <translation>la commande n’accepte pas ce contenu</translation>
    </message>
    <message>
        <source>the body or the filters name an object that does not exist</source>
        <translation>le contenu ou les filtres désignent un objet qui n’existe pas</translation>
    </message>
    <message>
        <source>a value is out of range</source>
        <translation>une valeur est hors plage</translation>
    </message>
    <message>
        <source>not the expected packet of a split exchange</source>
        <translation>pas le paquet attendu d’un échange fractionné</translation>
    </message>
    <message>
        <source>the answer whose further packet was requested is not kept</source>
        <translation>la réponse dont un autre paquet a été demandé n’est pas conservée</translation>
    </message>
    <message>
        <source>the packet, or the whole of a split write, is longer than the device accepts</source>
        <translation>le paquet, ou l’ensemble d’une écriture fractionnée, est plus long que l’appareil ne l’accepte</translation>
    </message>
    <message>
        <source>not possible now, for example because of other work or of a limit</source>
        <translation>impossible actuellement, par exemple à cause d’un autre travail ou d’une limite</translation>
    </message>
    <message>
        <source>length or hash of a file&apos;s content differ from those announced</source>
        <translation>la longueur ou le hachage du contenu d’un fichier diffère de l’annonce</translation>
    </message>
    <message>
        <source>storage is full or has failed</source>
        <translation>le stockage est plein ou en panne</translation>
    </message>
    <message>
        <source>another client holds control of the device</source>
        <translation>un autre client détient le contrôle de l’appareil</translation>
    </message>
    <message>
        <source>the device&apos;s data was changed by another client: synchronise first</source>
        <translation>les données de l’appareil ont été modifiées par un autre client&#xa0;: synchronisez d’abord</translation>
    </message>
</context>
<context>
    <name>Help</name>
    <message>
        <source>Usage: %1</source>
        <translation>Utilisation&#xa0;: %1</translation>
    </message>
    <message>
        <source>Show the help.</source>
        <translation>Afficher l’aide.</translation>
    </message>
    <message>
        <source>Show the version of the program.</source>
        <translation>Afficher la version du programme.</translation>
    </message>
    <message>
        <source>Commands:</source>
        <translation>Commandes&#xa0;:</translation>
    </message>
    <message>
        <source>Options:</source>
        <translation>Options&#xa0;:</translation>
    </message>
    <message>
        <source>Exit status:</source>
        <translation>Code de retour&#xa0;:</translation>
    </message>
    <message>
        <source>Options of the command:</source>
        <translation>Options de la commande&#xa0;:</translation>
    </message>
    <message>
        <source>Options of all commands:</source>
        <translation>Options de toutes les commandes&#xa0;:</translation>
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
        <translation>nombre de %1 à %2 attendu</translation>
    </message>
    <message>
        <source>expected %1 hexadecimal digits</source>
        <translation>%1 chiffres hexadécimaux attendus</translation>
    </message>
    <message>
        <source>expected an IP address</source>
        <translation>adresse IP attendue</translation>
    </message>
    <message>
        <source>A simulated video processor, for tests and demonstrations.</source>
        <translation>Un processeur vidéo simulé, pour les essais et les démonstrations.</translation>
    </message>
    <message>
        <source>Console, one command per line on standard input or on the control port:</source>
        <translation>Console, une commande par ligne sur l’entrée standard ou le port de console&#xa0;:</translation>
    </message>
    <message>
        <source>help, quit (standard input only)</source>
        <translation>help, quit (entrée standard seulement)</translation>
    </message>
    <message>
        <source>RULE is %1. Faults:</source>
        <translation>RULE est %1. Défauts&#xa0;:</translation>
    </message>
    <message>
        <source>Scenarios: %1.</source>
        <translation>Scénarios&#xa0;: %1.</translation>
    </message>
    <message>
        <source>Do not answer discovery requests.</source>
        <translation>Ne pas répondre aux recherches d’appareils.</translation>
    </message>
    <message>
        <source>Log each exchange on standard error.</source>
        <translation>Journaliser chaque échange sur la sortie d’erreur.</translation>
    </message>
    <message>
        <source>Log each exchange with its bodies.</source>
        <translation>Journaliser chaque échange avec ses contenus.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a valid value for --%2%3.</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas une valeur valide pour --%2%3.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an option.</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas une option.</translation>
    </message>
    <message>
        <source>The device has ended.</source>
        <translation>L’appareil s’est terminé.</translation>
    </message>
    <message>
        <source>The device cannot listen.</source>
        <translation>L’appareil ne peut pas accepter de connexions.</translation>
    </message>
    <message>
        <source>The command line is not valid.</source>
        <translation>La ligne de commande n’est pas valide.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a valid %2 (%3)</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas une valeur valide pour %2 (%3)</translation>
    </message>
    <message>
        <source>expected a number</source>
        <translation>nombre attendu</translation>
    </message>
    <message>
        <source>no such object</source>
        <translation>objet inexistant</translation>
    </message>
    <message>
        <source>timing not supported</source>
        <translation>timing non pris en charge</translation>
    </message>
    <message>
        <source>unknown command: %1</source>
        <translation>commande inconnue&#xa0;: %1</translation>
    </message>
    <message>
        <source>usage: %1 %2</source>
        <translation>utilisation&#xa0;: %1 %2</translation>
    </message>
    <message>
        <source>&quot;repeat&quot; must be the last line</source>
        <translation>«&#xa0;repeat&#xa0;» doit être la dernière ligne</translation>
    </message>
    <message>
        <source>usage: wait MILLISECONDS</source>
        <translation>utilisation&#xa0;: wait MILLISECONDS</translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation>ligne %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>a scenario that repeats needs a pause (wait MILLISECONDS)</source>
        <translation>un scénario qui se répète a besoin d’une pause (wait MILLISECONDS)</translation>
    </message>
    <message>
        <source>cannot read it: %1; the scenarios of the program are %2</source>
        <translation>lecture impossible&#xa0;: %1&#xa0;; les scénarios du programme sont %2</translation>
    </message>
    <message>
        <source>unknown fault: &quot;%1&quot;</source>
        <translation>défaut inconnu&#xa0;: «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>%1 takes a number from %2 to %3</source>
        <translation>%1 attend un nombre de %2 à %3</translation>
    </message>
    <message>
        <source>%1 takes no value</source>
        <translation>%1 ne prend pas de valeur</translation>
    </message>
    <message>
        <source>unknown limit: &quot;%1&quot;</source>
        <translation>limite inconnue&#xa0;: «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>%1 is given twice</source>
        <translation>%1 est indiqué deux fois</translation>
    </message>
    <message>
        <source>the identity answer has no status</source>
        <translation>la réponse d’identité n’a pas d’état</translation>
    </message>
    <message>
        <source>cannot listen for discovery requests on %1: %2</source>
        <translation>impossible de recevoir les recherches sur %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>cannot listen on %1: %2</source>
        <translation>impossible d’écouter sur %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>the scenario &quot;%1&quot; is not valid: %2</source>
        <translation>le scénario «&#xa0;%1&#xa0;» n’est pas valide&#xa0;: %2</translation>
    </message>
    <message>
        <source>cannot create the folder %1</source>
        <translation>impossible de créer le dossier %1</translation>
    </message>
    <message>
        <source>%1 is damaged: %2</source>
        <translation>%1 est endommagé&#xa0;: %2</translation>
    </message>
    <message>
        <source>the saved setup is damaged: %1</source>
        <translation>la configuration enregistrée est endommagée&#xa0;: %1</translation>
    </message>
    <message>
        <source>Listen on ADDRESS (127.0.0.1).</source>
        <translation>Écouter sur ADDRESS (127.0.0.1).</translation>
    </message>
    <message>
        <source>Listen on PORT (6630); 0: any free port.</source>
        <translation>Écouter sur PORT (6630)&#xa0;; 0&#xa0;: un port libre.</translation>
    </message>
    <message>
        <source>Console port, for this machine only; 0: any free port.</source>
        <translation>Port de console, pour cette machine seulement&#xa0;; 0&#xa0;: un port libre.</translation>
    </message>
    <message>
        <source>Answer discovery requests on this UDP port; 0: any free port. On a loopback address 6631 by default.</source>
        <translation>Répondre aux recherches sur ce port UDP&#xa0;; 0&#xa0;: un port libre. 6631 par défaut sur une adresse de bouclage.</translation>
    </message>
    <message>
        <source>Device name.</source>
        <translation>Nom de l’appareil.</translation>
    </message>
    <message>
        <source>Serial number, 16 hexadecimal digits.</source>
        <translation>Numéro de série, 16 chiffres hexadécimaux.</translation>
    </message>
    <message>
        <source>MAC address, 12 hexadecimal digits.</source>
        <translation>Adresse MAC, 12 chiffres hexadécimaux.</translation>
    </message>
    <message>
        <source>Model ID (0x7701).</source>
        <translation>ID de modèle (0x7701).</translation>
    </message>
    <message>
        <source>Longest body of a packet in either direction (65536).</source>
        <translation>Plus long contenu d’un paquet dans les deux sens (65536).</translation>
    </message>
    <message>
        <source>Delay each answer by MS milliseconds (0).</source>
        <translation>Retarder chaque réponse de MS millisecondes (0).</translation>
    </message>
    <message>
        <source>Clock speed of the device (100); 0: moved by &quot;pass&quot;.</source>
        <translation>Vitesse de l’horloge de l’appareil (100)&#xa0;; 0&#xa0;: avancée par «&#xa0;pass&#xa0;».</translation>
    </message>
    <message>
        <source>Keep files and the saved setup in the folder DIR.</source>
        <translation>Conserver les fichiers et la configuration dans le dossier DIR.</translation>
    </message>
    <message>
        <source>Inject a fault (see below); may be given several times.</source>
        <translation>Provoquer un défaut (voir ci-dessous)&#xa0;; peut être répété.</translation>
    </message>
    <message>
        <source>Seed for random faults (1).</source>
        <translation>Graine des défauts aléatoires (1).</translation>
    </message>
    <message>
        <source>Carry out a scenario (see below), or the one in the file SCENE.</source>
        <translation>Exécuter un scénario (voir ci-dessous), ou celui du fichier SCENE.</translation>
    </message>
    <message>
        <source>Input connectors (8), 1 to 4096.</source>
        <translation>Connecteurs d’entrée (8), 1 à 4096.</translation>
    </message>
    <message>
        <source>Output connectors (8), 1 to 4096.</source>
        <translation>Connecteurs de sortie (8), 1 à 4096.</translation>
    </message>
    <message>
        <source>Screens of all kinds (4), 0 to 255.</source>
        <translation>Écrans de toutes sortes (4), 0 à 255.</translation>
    </message>
    <message>
        <source>Layers in each of the two scenes of a screen (4), 0 to 256.</source>
        <translation>Couches dans chacune des deux scènes d’un écran (4), 0 à 256.</translation>
    </message>
    <message>
        <source>pulls the cable of an input</source>
        <translation>débranche le câble d’une entrée</translation>
    </message>
    <message>
        <source>plugs a card (1) or pulls it (0)</source>
        <translation>insère une carte (1) ou la retire (0)</translation>
    </message>
    <message>
        <source>0 or 1</source>
        <translation>0 ou 1</translation>
    </message>
    <message>
        <source>sets the colour depth of an input&apos;s source</source>
        <translation>règle la profondeur de couleur de la source d’une entrée</translation>
    </message>
    <message>
        <source>0 to 65535</source>
        <translation>0 à 65535</translation>
    </message>
    <message>
        <source>sets (1) or removes (0) the genlock signal</source>
        <translation>établit (1) ou supprime (0) le signal Genlock</translation>
    </message>
    <message>
        <source>names a group, and adds it if it is new</source>
        <translation>nomme un groupe, et l’ajoute s’il est nouveau</translation>
    </message>
    <message>
        <source>advances the device&apos;s clock</source>
        <translation>avance l’horloge de l’appareil</translation>
    </message>
    <message>
        <source>0 or more</source>
        <translation>0 ou plus</translation>
    </message>
    <message>
        <source>makes a power supply work (1) or fail (0)</source>
        <translation>fait marcher (1) ou tomber en panne (0) une alimentation</translation>
    </message>
    <message>
        <source>switches a pair of interfaces to this one</source>
        <translation>bascule une paire d’interfaces sur celle-ci</translation>
    </message>
    <message>
        <source>makes the upgrade fail at this progress</source>
        <translation>fait échouer la mise à jour à cette progression</translation>
    </message>
    <message>
        <source>0 to 100</source>
        <translation>0 à 100</translation>
    </message>
    <message>
        <source>switches the device off (0) or on (1)</source>
        <translation>éteint (0) ou allume (1) l’appareil</translation>
    </message>
    <message>
        <source>sets the timing of an input&apos;s source</source>
        <translation>règle le timing de la source d’une entrée</translation>
    </message>
    <message>
        <source>injects a fault from now on</source>
        <translation>provoque un défaut à partir de maintenant</translation>
    </message>
    <message>
        <source>lists the rules with their remaining counts</source>
        <translation>liste les règles avec le nombre d’applications restantes</translation>
    </message>
    <message>
        <source>0x1 to 0xFFFF, or the name of a command</source>
        <translation>0x1 à 0xFFFF, ou le nom d’une commande</translation>
    </message>
    <message>
        <source>0 to 4294967295</source>
        <translation>0 à 4294967295</translation>
    </message>
    <message>
        <source>1 to 4294967295</source>
        <translation>1 à 4294967295</translation>
    </message>
    <message>
        <source>1 to 100</source>
        <translation>1 à 100</translation>
    </message>
    <message>
        <source>refuses the request with this status</source>
        <translation>refuse la requête avec cet état</translation>
    </message>
    <message>
        <source>answers later</source>
        <translation>répond plus tard</translation>
    </message>
    <message>
        <source>never answers</source>
        <translation>ne répond jamais</translation>
    </message>
    <message>
        <source>does not carry the request out and never answers</source>
        <translation>n’exécute pas la requête et ne répond jamais</translation>
    </message>
    <message>
        <source>sends half of the answer and never the rest</source>
        <translation>envoie la moitié de la réponse et jamais le reste</translation>
    </message>
    <message>
        <source>does not carry the request out and ends the connection</source>
        <translation>n’exécute pas la requête et coupe la connexion</translation>
    </message>
    <message>
        <source>ends the connection before the answer</source>
        <translation>coupe la connexion avant la réponse</translation>
    </message>
    <message>
        <source>ends the connection after half of the answer</source>
        <translation>coupe la connexion après la moitié de la réponse</translation>
    </message>
    <message>
        <source>ends the connection after the answer</source>
        <translation>coupe la connexion après la réponse</translation>
    </message>
    <message>
        <source>answers with another flag (position 0)</source>
        <translation>répond avec une autre marque (position 0)</translation>
    </message>
    <message>
        <source>answers with another version (2)</source>
        <translation>répond avec une autre version (2)</translation>
    </message>
    <message>
        <source>answers with a tag that is not in use (3)</source>
        <translation>répond avec une étiquette inutilisée (3)</translation>
    </message>
    <message>
        <source>answers with a body length that is too large by this (4)</source>
        <translation>répond avec une longueur de contenu trop grande d’autant (4)</translation>
    </message>
    <message>
        <source>answers with a checksum index that is not defined (9)</source>
        <translation>répond avec un index de somme de contrôle non défini (9)</translation>
    </message>
    <message>
        <source>answers with a kind that is not defined (10)</source>
        <translation>répond avec une sorte non définie (10)</translation>
    </message>
    <message>
        <source>answers with another checksum of the head (12)</source>
        <translation>répond avec une autre somme de contrôle de l’en-tête (12)</translation>
    </message>
    <message>
        <source>answers with another checksum of the body (14)</source>
        <translation>répond avec une autre somme de contrôle du contenu (14)</translation>
    </message>
    <message>
        <source>answers with another stream (18)</source>
        <translation>répond avec un autre flux (18)</translation>
    </message>
    <message>
        <source>answers with another type (20)</source>
        <translation>répond avec un autre type (20)</translation>
    </message>
    <message>
        <source>answers with another function code (29)</source>
        <translation>répond avec un autre code de fonction (29)</translation>
    </message>
    <message>
        <source>answers with this number of packets (21)</source>
        <translation>répond avec ce nombre de paquets (21)</translation>
    </message>
    <message>
        <source>sends the next packet first, then this one</source>
        <translation>envoie d’abord le paquet suivant, puis celui-ci</translation>
    </message>
    <message>
        <source>answers twice</source>
        <translation>répond deux fois</translation>
    </message>
    <message>
        <source>answers an earlier request without an answer</source>
        <translation>répond à une requête antérieure restée sans réponse</translation>
    </message>
    <message>
        <source>sends this part of the body, 0: half, in a valid frame</source>
        <translation>envoie cette partie du contenu, 0&#xa0;: la moitié, dans une trame valide</translation>
    </message>
    <message>
        <source>replaces bytes of the body by #, in a valid frame</source>
        <translation>remplace des octets du contenu par #, dans une trame valide</translation>
    </message>
    <message>
        <source>does not carry the request out and restarts</source>
        <translation>n’exécute pas la requête et redémarre</translation>
    </message>
    <message>
        <source>sends reports before the answer, up to 100000</source>
        <translation>envoie des rapports avant la réponse, jusqu’à 100000</translation>
    </message>
    <message>
        <source>it was not written by this version of tavorosim</source>
        <translation>il n’a pas été écrit par cette version de tavorosim</translation>
    </message>
    <message>
        <source>another device uses it</source>
        <translation>un autre appareil l’utilise</translation>
    </message>
    <message>
        <source>cannot use %1: %2</source>
        <translation>impossible d’utiliser %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>removes all rules and does what release does</source>
        <translation>supprime toutes les règles et fait ce que fait release</translation>
    </message>
    <message>
        <source>sends held answers and resumes reading</source>
        <translation>envoie les réponses retenues et reprend la lecture</translation>
    </message>
    <message>
        <source>usage: fault add RULE, fault clear, fault list, fault release</source>
        <translation>utilisation&#xa0;: fault add RULE, fault clear, fault list, fault release</translation>
    </message>
    <message>
        <source>answers after &quot;fault release&quot;</source>
        <translation>répond après «&#xa0;fault release&#xa0;»</translation>
    </message>
    <message>
        <source>neither reads nor answers for this time, 0: until &quot;fault release&quot;</source>
        <translation>ne lit ni ne répond pendant ce temps, 0&#xa0;: jusqu’à «&#xa0;fault release&#xa0;»</translation>
    </message>
</context>
<context>
    <name>Tavoro::Control::ControlHelper</name>
    <message>
        <source>hardware error:%1</source>
        <translation>erreur matérielle&#xa0;:%1</translation>
    </message>
</context>
<context>
    <name>Tavoro::Gate::BrokerConnection</name>
    <message>
        <source>not connected yet</source>
        <translation>pas encore connecté</translation>
    </message>
</context>
<context>
    <name>Tavoro::Gate::DeviceCalls</name>
    <message>
        <source>the correlation data belongs to another call</source>
        <translation>les données de corrélation appartiennent à un autre appel</translation>
    </message>
    <message>
        <source>too many calls wait</source>
        <translation>trop d’appels attendent</translation>
    </message>
    <message>
        <source>the message has expired</source>
        <translation>le message a expiré</translation>
    </message>
    <message>
        <source>the broker does not permit the gateway&apos;s claims</source>
        <translation>le broker n’autorise pas les annonces de prise en charge de la passerelle</translation>
    </message>
    <message>
        <source>no gateway worked for the device in time</source>
        <translation>aucune passerelle ne s’est occupée de l’appareil à temps</translation>
    </message>
    <message>
        <source>the gateway that works for the device has not received the call</source>
        <translation>la passerelle qui s’occupe de l’appareil n’a pas reçu l’appel</translation>
    </message>
</context>
<context>
    <name>Tavoro::Gate::DevicePresence</name>
    <message>
        <source>the gateway was stopped</source>
        <translation>la passerelle a été arrêtée</translation>
    </message>
</context>
<context>
    <name>Tavoro::Gate::MosquittoClient</name>
    <message>
        <source>the broker does not answer</source>
        <translation>le broker ne répond pas</translation>
    </message>
    <message>
        <source>the certificates cannot be used: %1</source>
        <translation>les certificats ne peuvent pas être utilisés&#xa0;: %1</translation>
    </message>
    <message>
        <source>the gateway stops</source>
        <translation>la passerelle s’arrête</translation>
    </message>
</context>
</TS>
