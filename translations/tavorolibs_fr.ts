<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>Tavoro::BizModel::Device</name>
    <message>
        <source>Interface %1/%2/%3</source>
        <translation>Interface %1/%2/%3</translation>
    </message>
    <message>
        <source>Screen %1 of type %2</source>
        <translation>Écran %1 de type %2</translation>
    </message>
    <message>
        <source>Layer %1 of type %2 in scene %3 on screen %4 of type %5</source>
        <translation>Couche %1 de type %2, scène %3, écran %4 de type %5</translation>
    </message>
    <message>
        <source>File %1 of type %2</source>
        <translation>Fichier %1 de type %2</translation>
    </message>
    <message>
        <source>%1 occurs twice.</source>
        <translation>%1 apparaît deux fois.</translation>
    </message>
    <message>
        <source>%1 has the output %2, which the device does not have.</source>
        <translation>%1 utilise la sortie %2, que l’appareil ne possède pas.</translation>
    </message>
    <message>
        <source>%1: the device does not have the screen.</source>
        <translation>%1&#xa0;: l’appareil ne possède pas cet écran.</translation>
    </message>
    <message>
        <source>And %1 more.</source>
        <translation>Et %1 de plus.</translation>
    </message>
    <message>
        <source>The device has no slot %1</source>
        <translation>L’appareil n’a pas d’emplacement %1</translation>
    </message>
    <message>
        <source>Subcard %1</source>
        <translation>Carte %1</translation>
    </message>
    <message>
        <source>Power supply %1</source>
        <translation>Alimentation %1</translation>
    </message>
    <message>
        <source>Device group %1</source>
        <translation>Groupe d’appareils %1</translation>
    </message>
</context>
<context>
    <name>Tavoro::BizModel::DeviceList</name>
    <message>
        <source>%1 of the device %2 %3 %4</source>
        <translation>%1 de l’appareil %2 %3 %4</translation>
    </message>
    <message>
        <source>A store of devices is open already.</source>
        <translation>Une base d’appareils est déjà ouverte.</translation>
    </message>
    <message>
        <source>The file %1 is not a store of devices.</source>
        <translation>Le fichier %1 n’est pas une base d’appareils.</translation>
    </message>
    <message>
        <source>The file %1 was written by a later version.</source>
        <translation>Le fichier %1 a été écrit par une version plus récente.</translation>
    </message>
    <message>
        <source>The file was written by an earlier version, which this one cannot read.</source>
        <translation>Le fichier a été écrit par une version antérieure que celle-ci ne sait pas lire.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Control::ControlHelper</name>
    <message>
        <source> error json is : </source>
        <translation> JSON erroné&#xa0;: </translation>
    </message>
    <message>
        <source>Decode json failed: </source>
        <translation>Échec du décodage du JSON&#xa0;: </translation>
    </message>
    <message>
        <source>Device is null.</source>
        <translation>L’appareil manque.</translation>
    </message>
    <message>
        <source>device detail information</source>
        <translation>détails de l’appareil</translation>
    </message>
    <message>
        <source>device general information</source>
        <translation>informations générales de l’appareil</translation>
    </message>
    <message>
        <source>device card mode information</source>
        <translation>mode des cartes de l’appareil</translation>
    </message>
    <message>
        <source>device power information</source>
        <translation>alimentation de l’appareil</translation>
    </message>
    <message>
        <source>device genlock config information</source>
        <translation>configuration Genlock de l’appareil</translation>
    </message>
    <message>
        <source>device genlock status information</source>
        <translation>état Genlock de l’appareil</translation>
    </message>
    <message>
        <source>device net config information</source>
        <translation>configuration réseau de l’appareil</translation>
    </message>
    <message>
        <source>device swap status information</source>
        <translation>état de permutation de l’appareil</translation>
    </message>
    <message>
        <source>device test pattern information</source>
        <translation>mire de l’appareil</translation>
    </message>
    <message>
        <source>device Dynamic Rang Conversion information</source>
        <translation>conversion de plage dynamique</translation>
    </message>
    <message>
        <source>device group information</source>
        <translation>groupes d’appareils</translation>
    </message>
    <message>
        <source>input backup information</source>
        <translation>entrées de secours</translation>
    </message>
    <message>
        <source>device backup information</source>
        <translation>appareil de secours</translation>
    </message>
    <message>
        <source>Load to PGM</source>
        <translation>Charger sur PGM</translation>
    </message>
    <message>
        <source>interface detail information</source>
        <translation>détails de l’interface</translation>
    </message>
    <message>
        <source>interface general information</source>
        <translation>informations générales de l’interface</translation>
    </message>
    <message>
        <source>interface test pattern information</source>
        <translation>mire de l’interface</translation>
    </message>
    <message>
        <source>interface preset timing information</source>
        <translation>timing demandé de l’interface</translation>
    </message>
    <message>
        <source>interface actual timing information</source>
        <translation>timing effectif de l’interface</translation>
    </message>
    <message>
        <source>interface image quality information</source>
        <translation>qualité d’image de l’interface</translation>
    </message>
    <message>
        <source>interface crop information</source>
        <translation>recadrage de l’interface</translation>
    </message>
    <message>
        <source>interface cutout general information</source>
        <translation>détourage de l’interface</translation>
    </message>
    <message>
        <source>interface HDCP information</source>
        <translation>HDCP de l’interface</translation>
    </message>
    <message>
        <source>interface colorDepth information</source>
        <translation>profondeur de couleur de l’interface</translation>
    </message>
    <message>
        <source>interface colorSpace information</source>
        <translation>espace colorimétrique de l’interface</translation>
    </message>
    <message>
        <source>interface colorRange information</source>
        <translation>plage de couleur de l’interface</translation>
    </message>
    <message>
        <source>interface formatMapping information</source>
        <translation>correspondance de formats de l’interface</translation>
    </message>
    <message>
        <source>interface HDR information</source>
        <translation>HDR de l’interface</translation>
    </message>
    <message>
        <source>screen detail information</source>
        <translation>détails de l’écran</translation>
    </message>
    <message>
        <source>screen enable information</source>
        <translation>activation de l’écran</translation>
    </message>
    <message>
        <source>screen general information</source>
        <translation>informations générales de l’écran</translation>
    </message>
    <message>
        <source>screen background color information</source>
        <translation>couleur de fond de l’écran</translation>
    </message>
    <message>
        <source>screen layout information</source>
        <translation>disposition de l’écran</translation>
    </message>
    <message>
        <source>screen physical size information</source>
        <translation>dimensions physiques de l’écran</translation>
    </message>
    <message>
        <source>screen pgm edit information</source>
        <translation>édition PGM de l’écran</translation>
    </message>
    <message>
        <source>screen selected information</source>
        <translation>sélection de l’écran</translation>
    </message>
    <message>
        <source>screen image quality information</source>
        <translation>qualité d’image de l’écran</translation>
    </message>
    <message>
        <source>screen freeze information</source>
        <translation>gel d’image de l’écran</translation>
    </message>
    <message>
        <source>screen FTB information</source>
        <translation>fondu au noir de l’écran</translation>
    </message>
    <message>
        <source>screen test pattern information</source>
        <translation>mire de l’écran</translation>
    </message>
    <message>
        <source>screen switch effect information</source>
        <translation>transition de l’écran</translation>
    </message>
    <message>
        <source>screen tbar information</source>
        <translation>T-bar de l’écran</translation>
    </message>
    <message>
        <source>screen take information</source>
        <translation>Take de l’écran</translation>
    </message>
    <message>
        <source>screen delete information</source>
        <translation>suppression de l’écran</translation>
    </message>
    <message>
        <source>screen HDR information</source>
        <translation>HDR de l’écran</translation>
    </message>
    <message>
        <source>screen backup information</source>
        <translation>secours de l’écran</translation>
    </message>
    <message>
        <source>layer detail information</source>
        <translation>détails de la couche</translation>
    </message>
    <message>
        <source>layer enable information</source>
        <translation>activation de la couche</translation>
    </message>
    <message>
        <source>layer z order information</source>
        <translation>ordre d’empilement des couches</translation>
    </message>
    <message>
        <source>layer general information</source>
        <translation>informations générales de la couche</translation>
    </message>
    <message>
        <source>layer source information</source>
        <translation>source de la couche</translation>
    </message>
    <message>
        <source>layer window information</source>
        <translation>fenêtre de la couche</translation>
    </message>
    <message>
        <source>layer mask information</source>
        <translation>masque de la couche</translation>
    </message>
    <message>
        <source>layer color information</source>
        <translation>couleur de la couche</translation>
    </message>
    <message>
        <source>layer opacity information</source>
        <translation>opacité de la couche</translation>
    </message>
    <message>
        <source>layer image quality information</source>
        <translation>qualité d’image de la couche</translation>
    </message>
    <message>
        <source>layer shadow information</source>
        <translation>ombre de la couche</translation>
    </message>
    <message>
        <source>layer border information</source>
        <translation>bordure de la couche</translation>
    </message>
    <message>
        <source>layer selected information</source>
        <translation>sélection de la couche</translation>
    </message>
    <message>
        <source>layer UMD information</source>
        <translation>UMD de la couche</translation>
    </message>
    <message>
        <source>layer remove information</source>
        <translation>retrait de la couche</translation>
    </message>
    <message>
        <source>layer Cut &amp; fill information</source>
        <translation>découpe &amp; remplissage de la couche</translation>
    </message>
    <message>
        <source>preset apply information</source>
        <translation>application du préréglage</translation>
    </message>
    <message>
        <source>ProjectFile apply information</source>
        <translation>application du fichier de projet</translation>
    </message>
    <message>
        <source>file detail information</source>
        <translation>détails du fichier</translation>
    </message>
    <message>
        <source>file delete information</source>
        <translation>suppression du fichier</translation>
    </message>
    <message>
        <source>file general information</source>
        <translation>informations générales du fichier</translation>
    </message>
    <message>
        <source>file import information</source>
        <translation>importation du fichier</translation>
    </message>
    <message>
        <source>file export information</source>
        <translation>exportation du fichier</translation>
    </message>
    <message>
        <source>file transfer progress information</source>
        <translation>progression du transfert de fichier</translation>
    </message>
    <message>
        <source>file create image file information</source>
        <translation>création du fichier image</translation>
    </message>
    <message>
        <source>file create preset file information</source>
        <translation>création du fichier de préréglage</translation>
    </message>
    <message>
        <source>file create project file information</source>
        <translation>création du fichier de projet</translation>
    </message>
    <message>
        <source>file create log file information</source>
        <translation>création du fichier journal</translation>
    </message>
    <message>
        <source>shutdown or restart information</source>
        <translation>arrêt ou redémarrage</translation>
    </message>
    <message>
        <source>factory reset information</source>
        <translation>réinitialisation d’usine</translation>
    </message>
    <message>
        <source>save information</source>
        <translation>enregistrement</translation>
    </message>
    <message>
        <source>source loss statics information</source>
        <translation>comptage des pertes de source</translation>
    </message>
    <message>
        <source>source loss statics result information</source>
        <translation>résultat du comptage des pertes de source</translation>
    </message>
    <message>
        <source>cutout position information</source>
        <translation>position du détourage</translation>
    </message>
    <message>
        <source>cutout RGB information</source>
        <translation>valeur RGB du détourage</translation>
    </message>
    <message>
        <source>upgrade detail information</source>
        <translation>détails de la mise à jour</translation>
    </message>
    <message>
        <source>upgrade percent information</source>
        <translation>progression de la mise à jour</translation>
    </message>
    <message>
        <source>device version information</source>
        <translation>versions de l’appareil</translation>
    </message>
    <message>
        <source>self check detail information</source>
        <translation>détails de l’autotest</translation>
    </message>
    <message>
        <source>set device time information</source>
        <translation>heure de l’appareil</translation>
    </message>
    <message>
        <source>device file load progress information</source>
        <translation>progression du chargement des fichiers de l’appareil</translation>
    </message>
    <message>
        <source>The current device is already under control</source>
        <translation>L’appareil est déjà sous contrôle</translation>
    </message>
    <message>
        <source>software error: Channel is not initialized</source>
        <translation>erreur logicielle&#xa0;: canal non initialisé</translation>
    </message>
    <message>
        <source>software error: Channel is connecting</source>
        <translation>erreur logicielle&#xa0;: canal en cours de connexion</translation>
    </message>
    <message>
        <source>software error: Channel disconnected</source>
        <translation>erreur logicielle&#xa0;: canal déconnecté</translation>
    </message>
    <message>
        <source>software error: Request timed out</source>
        <translation>erreur logicielle&#xa0;: délai de la requête dépassé</translation>
    </message>
    <message>
        <source>software error: Asynchronous request is being executed</source>
        <translation>erreur logicielle&#xa0;: une requête asynchrone est en cours</translation>
    </message>
    <message>
        <source>software error: Sync request is being executed</source>
        <translation>erreur logicielle&#xa0;: une requête synchrone est en cours</translation>
    </message>
    <message>
        <source>software error: Invalid request command</source>
        <translation>erreur logicielle&#xa0;: requête non valide</translation>
    </message>
    <message>
        <source>software error: Sending thread is not initialized or not started</source>
        <translation>erreur logicielle&#xa0;: le thread d’envoi n’est pas initialisé ou pas démarré</translation>
    </message>
    <message>
        <source>protocol error: Invalid register address</source>
        <translation>erreur de protocole&#xa0;: adresse de registre non valide</translation>
    </message>
    <message>
        <source>protocol error: Return data is too short</source>
        <translation>erreur de protocole&#xa0;: réponse trop courte</translation>
    </message>
    <message>
        <source>protocol error: Invalid protocol header flag</source>
        <translation>erreur de protocole&#xa0;: marque d’en-tête non valide</translation>
    </message>
    <message>
        <source>protocol error: Invalid checksum index</source>
        <translation>erreur de protocole&#xa0;: index de somme de contrôle non valide</translation>
    </message>
    <message>
        <source>protocol error: Invalid checksum</source>
        <translation>erreur de protocole&#xa0;: somme de contrôle non valide</translation>
    </message>
    <message>
        <source>protocol error: Invalid type</source>
        <translation>erreur de protocole&#xa0;: type non valide</translation>
    </message>
    <message>
        <source>protocol error: Invalid extended data length</source>
        <translation>erreur de protocole&#xa0;: longueur des données étendues non valide</translation>
    </message>
    <message>
        <source>protocol error: Device response timeout</source>
        <translation>erreur de protocole&#xa0;: l’appareil ne répond pas</translation>
    </message>
    <message>
        <source>protocol error: Device response decoding timed out</source>
        <translation>erreur de protocole&#xa0;: délai de décodage de la réponse dépassé</translation>
    </message>
    <message>
        <source>hardware error:%1</source>
        <translation>erreur matérielle&#xa0;:%1</translation>
    </message>
    <message>
        <source>Get %1 failed: %2 .</source>
        <translation>Échec de la lecture «&#xa0;%1&#xa0;»&#xa0;: %2.</translation>
    </message>
    <message>
        <source>Get %1 successfully.</source>
        <translation>Lecture «&#xa0;%1&#xa0;» réussie.</translation>
    </message>
    <message>
        <source>Set %1 failed: %2 .</source>
        <translation>Échec du réglage «&#xa0;%1&#xa0;»&#xa0;: %2.</translation>
    </message>
    <message>
        <source>Set %1 successfully.</source>
        <translation>Réglage «&#xa0;%1&#xa0;» réussi.</translation>
    </message>
    <message>
        <source>Invalid request command</source>
        <translation>Requête non valide</translation>
    </message>
    <message>
        <source>invalid device model data</source>
        <translation>données de modèle de l’appareil non valides</translation>
    </message>
    <message>
        <source>The device is offline</source>
        <translation>L’appareil est hors ligne</translation>
    </message>
    <message>
        <source>invalid response command model data</source>
        <translation>données de modèle de la réponse non valides</translation>
    </message>
    <message>
        <source>Device data has been updated, please synchronize now.</source>
        <translation>Les données de l’appareil ont changé, veuillez synchroniser maintenant.</translation>
    </message>
    <message>
        <source>Operation has been cancelled.</source>
        <translation>L’opération a été annulée.</translation>
    </message>
    <message>
        <source>The device is controlled by others.</source>
        <translation>L’appareil est contrôlé par d’autres.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Control::DeviceList</name>
    <message>
        <source>Device model is nullptr</source>
        <translation>Le modèle d’appareil manque</translation>
    </message>
</context>
<context>
    <name>Tavoro::Control::SaveFilePrivate</name>
    <message>
        <source>File open failed. file path: %1</source>
        <translation>Échec de l’ouverture du fichier. Chemin&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>Tavoro::Control::SyncDeviceTask</name>
    <message>
        <source>Device not ready.</source>
        <translation>L’appareil n’est pas prêt.</translation>
    </message>
    <message>
        <source>Device offline</source>
        <translation>Appareil hors ligne</translation>
    </message>
</context>
<context>
    <name>Tavoro::DeviceFiles</name>
    <message>
        <source>the content could not be read (%1)</source>
        <translation>le contenu n’a pas pu être lu (%1)</translation>
    </message>
    <message>
        <source>the content could not be written (%1)</source>
        <translation>le contenu n’a pas pu être écrit (%1)</translation>
    </message>
    <message>
        <source>the length of the content is not known</source>
        <translation>la longueur du contenu est inconnue</translation>
    </message>
    <message>
        <source>type and ID of a file are 0 to %1</source>
        <translation>le type et l’ID d’un fichier vont de 0 à %1</translation>
    </message>
    <message>
        <source>a file has at most %1 bytes</source>
        <translation>un fichier a au plus %1 octets</translation>
    </message>
</context>
<context>
    <name>Tavoro::DeviceSession</name>
    <message>
        <source>the clock could not be set (%1)</source>
        <translation>l’horloge n’a pas pu être réglée (%1)</translation>
    </message>
    <message>
        <source>the details could not be read (%1)</source>
        <translation>les détails n’ont pas pu être lus (%1)</translation>
    </message>
    <message>
        <source>the device is not ready yet</source>
        <translation>l’appareil n’est pas encore prêt</translation>
    </message>
    <message>
        <source>the interfaces could not be read (%1)</source>
        <translation>les interfaces n’ont pas pu être lues (%1)</translation>
    </message>
    <message>
        <source>the screens could not be read (%1)</source>
        <translation>les écrans n’ont pas pu être lus (%1)</translation>
    </message>
    <message>
        <source>the layers could not be read (%1)</source>
        <translation>les couches n’ont pas pu être lues (%1)</translation>
    </message>
    <message>
        <source>the list of files could not be read (%1)</source>
        <translation>la liste des fichiers n’a pas pu être lue (%1)</translation>
    </message>
    <message>
        <source>the content of a file could not be read (%1)</source>
        <translation>le contenu d’un fichier n’a pas pu être lu (%1)</translation>
    </message>
    <message>
        <source>the session is closed</source>
        <translation>la session est fermée</translation>
    </message>
    <message>
        <source>there is no connection yet</source>
        <translation>il n’y a pas encore de connexion</translation>
    </message>
    <message>
        <source>the device is open already, at %1</source>
        <translation>l’appareil est déjà ouvert, à l’adresse %1</translation>
    </message>
    <message>
        <source>its channel was stopped</source>
        <translation>son canal a été arrêté</translation>
    </message>
    <message>
        <source>%1 is disconnected.</source>
        <translation>%1 est déconnecté.</translation>
    </message>
    <message>
        <source>%1 is disconnected: %2.</source>
        <translation>%1 est déconnecté&#xa0;: %2.</translation>
    </message>
    <message>
        <source>Connecting to %1.</source>
        <translation>Connexion à %1.</translation>
    </message>
    <message>
        <source>Cannot connect to %1: %2.</source>
        <translation>Connexion à %1 impossible&#xa0;: %2.</translation>
    </message>
    <message>
        <source>Reading %1.</source>
        <translation>Lecture de %1.</translation>
    </message>
    <message>
        <source>Cannot read %1: %2.</source>
        <translation>Lecture de %1 impossible&#xa0;: %2.</translation>
    </message>
    <message>
        <source>%1 is ready.</source>
        <translation>%1 est prêt.</translation>
    </message>
    <message>
        <source>%1 is ready, but %2.</source>
        <translation>%1 est prêt, mais %2.</translation>
    </message>
    <message>
        <source>The connection to %1 is lost.</source>
        <translation>La connexion à %1 est perdue.</translation>
    </message>
    <message>
        <source>The connection to %1 is lost: %2.</source>
        <translation>La connexion à %1 est perdue&#xa0;: %2.</translation>
    </message>
    <message>
        <source>it failed at %1 percent</source>
        <translation>échec à %1 pour cent</translation>
    </message>
    <message>
        <source>the device does not report its progress any more</source>
        <translation>l’appareil ne signale plus sa progression</translation>
    </message>
    <message>
        <source>the device continues, but is not followed any more</source>
        <translation>l’appareil continue, mais n’est plus suivi</translation>
    </message>
</context>
<context>
    <name>Tavoro::Models::SessionEditHandler</name>
    <message>
        <source>There is no command that writes this value.</source>
        <translation>Aucune commande n’écrit cette valeur.</translation>
    </message>
    <message>
        <source>The device is not open.</source>
        <translation>L’appareil n’est pas ouvert.</translation>
    </message>
    <message>
        <source>The value was written, but could not be read again.</source>
        <translation>La valeur a été écrite, mais n’a pas pu être relue.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Operations</name>
    <message>
        <source>a text is missing</source>
        <translation>il manque un texte</translation>
    </message>
    <message>
        <source>argument %1: unexpected &quot;%2&quot;</source>
        <translation>argument %1&#xa0;: «&#xa0;%2&#xa0;» inattendu</translation>
    </message>
    <message>
        <source>a number is missing</source>
        <translation>il manque un nombre</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un nombre</translation>
    </message>
    <message>
        <source>%1 is not between %2 and %3</source>
        <translation>%1 n’est pas compris entre %2 et %3</translation>
    </message>
    <message>
        <source>argument %1: %2</source>
        <translation>argument %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>a record is missing</source>
        <translation>il manque un enregistrement</translation>
    </message>
    <message>
        <source>; did you mean &quot;%1&quot;</source>
        <translation>&#xa0;; vouliez-vous dire «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>%1 failed.</source>
        <translation>%1 a échoué.</translation>
    </message>
    <message>
        <source>unknown operation &quot;%1&quot;</source>
        <translation>opération inconnue «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>line %1, column %2: %3</source>
        <translation>ligne %1, colonne %2&#xa0;: %3</translation>
    </message>
    <message>
        <source>unknown key &quot;%1&quot;%2; the keys here are: %3</source>
        <translation>clé inconnue «&#xa0;%1&#xa0;»%2&#xa0;; les clés possibles ici&#xa0;: %3</translation>
    </message>
    <message>
        <source>%1 would be sent as %2</source>
        <translation>%1 serait envoyé comme %2</translation>
    </message>
    <message>
        <source>; the range is %1 to %2</source>
        <translation>&#xa0;; la plage va de %1 à %2</translation>
    </message>
    <message>
        <source>expected a list [...], found an object</source>
        <translation>liste [...] attendue, objet trouvé</translation>
    </message>
    <message>
        <source>expected an object {...}, found a list</source>
        <translation>objet {...} attendu, liste trouvée</translation>
    </message>
    <message>
        <source>missing keys: %1</source>
        <translation>clés manquantes&#xa0;: %1</translation>
    </message>
    <message>
        <source>Reads the whole state of the device.</source>
        <translation>Lit l’état complet de l’appareil.</translation>
    </message>
    <message>
        <source>Reads the whole state of the device into the model.</source>
        <translation>Lit l’état complet de l’appareil dans le modèle.</translation>
    </message>
    <message>
        <source>Reads the whole state of the device as the JSON text that the device sent.</source>
        <translation>Lit l’état complet de l’appareil sous la forme du texte JSON qu’il a envoyé.</translation>
    </message>
    <message>
        <source>Reads the whole state of the device and replaces the cards in the model that the argument names.</source>
        <translation>Lit l’état complet de l’appareil et remplace dans le modèle les cartes citées par l’argument.</translation>
    </message>
    <message>
        <source>Reads the groups that the device belongs to.</source>
        <translation>Lit les groupes auxquels l’appareil appartient.</translation>
    </message>
    <message>
        <source>Reads the output mapping.</source>
        <translation>Lit l’affectation des sorties.</translation>
    </message>
    <message>
        <source>Renames the device.</source>
        <translation>Renomme l’appareil.</translation>
    </message>
    <message>
        <source>Sets the working modes of cards and connectors.</source>
        <translation>Règle les modes des cartes et des connecteurs.</translation>
    </message>
    <message>
        <source>Selects the signal that the device locks its outputs to.</source>
        <translation>Choisit le signal sur lequel l’appareil verrouille ses sorties.</translation>
    </message>
    <message>
        <source>Sets up the network ports.</source>
        <translation>Configure les ports réseau.</translation>
    </message>
    <message>
        <source>Selects whether a take swaps preview and programme.</source>
        <translation>Choisit si un Take permute la prévisualisation et le programme.</translation>
    </message>
    <message>
        <source>Sets the output mapping and its test pattern.</source>
        <translation>Règle l’affectation des sorties et sa mire.</translation>
    </message>
    <message>
        <source>Sets the conversion between dynamic ranges.</source>
        <translation>Règle la conversion entre plages dynamiques.</translation>
    </message>
    <message>
        <source>Sets the groups that the device belongs to.</source>
        <translation>Règle les groupes auxquels l’appareil appartient.</translation>
    </message>
    <message>
        <source>Sets the backup relations between interfaces.</source>
        <translation>Règle les relations de secours entre interfaces.</translation>
    </message>
    <message>
        <source>Switches the device&apos;s ZeLK feature on or off.</source>
        <translation>Active ou désactive la fonction ZeLK de l’appareil.</translation>
    </message>
    <message>
        <source>Selects where an applied preset goes: preview or programme.</source>
        <translation>Choisit la destination d’un préréglage appliqué&#xa0;: prévisualisation ou programme.</translation>
    </message>
    <message>
        <source>Reads interfaces.</source>
        <translation>Lit des interfaces.</translation>
    </message>
    <message>
        <source>Sets the names of interfaces.</source>
        <translation>Règle les noms d’interfaces.</translation>
    </message>
    <message>
        <source>Sends the same command as writeInterfaceGeneral().</source>
        <translation>Envoie la même commande que writeInterfaceGeneral().</translation>
    </message>
    <message>
        <source>Shows or hides a test pattern.</source>
        <translation>Affiche ou masque une mire.</translation>
    </message>
    <message>
        <source>Requests a video timing.</source>
        <translation>Demande un timing vidéo.</translation>
    </message>
    <message>
        <source>Sends nothing and fails: the device measures timings.</source>
        <translation>N’envoie rien et échoue&#xa0;: l’appareil mesure les timings.</translation>
    </message>
    <message>
        <source>Sets contrast, brightness, hue, saturation and gamma.</source>
        <translation>Règle contraste, luminosité, teinte, saturation et gamma.</translation>
    </message>
    <message>
        <source>Crops inputs, in units of 1/100000 of their size.</source>
        <translation>Recadre des entrées, par unités de 1/100000 de leur taille.</translation>
    </message>
    <message>
        <source>Cuts a colour or a brightness out of inputs.</source>
        <translation>Détoure une couleur ou une luminosité dans des entrées.</translation>
    </message>
    <message>
        <source>Switches copy protection on or off.</source>
        <translation>Active ou désactive la protection contre la copie.</translation>
    </message>
    <message>
        <source>Requests a colour depth.</source>
        <translation>Demande une profondeur de couleur.</translation>
    </message>
    <message>
        <source>Requests a colour space.</source>
        <translation>Demande un espace colorimétrique.</translation>
    </message>
    <message>
        <source>Requests a colour range.</source>
        <translation>Demande une plage de couleur.</translation>
    </message>
    <message>
        <source>Selects the format mapping.</source>
        <translation>Choisit la correspondance de formats.</translation>
    </message>
    <message>
        <source>Sets gamut and dynamic range.</source>
        <translation>Règle le gamut et la plage dynamique.</translation>
    </message>
    <message>
        <source>Reads screens.</source>
        <translation>Lit des écrans.</translation>
    </message>
    <message>
        <source>Creates screens with their outputs and their position.</source>
        <translation>Crée des écrans avec leurs sorties et leur position.</translation>
    </message>
    <message>
        <source>Renames screens.</source>
        <translation>Renomme des écrans.</translation>
    </message>
    <message>
        <source>Sets the colour of the area that no layer covers.</source>
        <translation>Règle la couleur de la zone qu’aucune couche ne couvre.</translation>
    </message>
    <message>
        <source>Moves screens on the canvas, in pixels.</source>
        <translation>Déplace des écrans sur le plan de travail, en pixels.</translation>
    </message>
    <message>
        <source>Sets the physical size of screens.</source>
        <translation>Règle les dimensions physiques d’écrans.</translation>
    </message>
    <message>
        <source>Selects whether edits go to the preview or to the programme.</source>
        <translation>Choisit si les modifications vont à la prévisualisation ou au programme.</translation>
    </message>
    <message>
        <source>Selects screens on the device&apos;s own panel.</source>
        <translation>Sélectionne des écrans sur la façade de l’appareil.</translation>
    </message>
    <message>
        <source>Sets contrast, brightness, hue, saturation and gamma of screens.</source>
        <translation>Règle contraste, luminosité, teinte, saturation et gamma d’écrans.</translation>
    </message>
    <message>
        <source>Freezes or releases the picture of screens.</source>
        <translation>Fige ou libère l’image d’écrans.</translation>
    </message>
    <message>
        <source>Fades screens to black, or back to the picture.</source>
        <translation>Fond des écrans au noir, ou revient à l’image.</translation>
    </message>
    <message>
        <source>Sets the transition of the next take.</source>
        <translation>Règle la transition du prochain Take.</translation>
    </message>
    <message>
        <source>Moves the T-bar, in percent.</source>
        <translation>Déplace le T-bar, en pour cent.</translation>
    </message>
    <message>
        <source>Takes: switches the preview to programme with the given transition.</source>
        <translation>Exécute un Take&#xa0;: bascule la prévisualisation au programme avec la transition donnée.</translation>
    </message>
    <message>
        <source>Deletes screens with their layers.</source>
        <translation>Supprime des écrans avec leurs couches.</translation>
    </message>
    <message>
        <source>Sets the dynamic range of the outputs of screens.</source>
        <translation>Règle la plage dynamique des sorties d’écrans.</translation>
    </message>
    <message>
        <source>Switches the ZeLK feature of screens on or off.</source>
        <translation>Active ou désactive la fonction ZeLK d’écrans.</translation>
    </message>
    <message>
        <source>Reads layers.</source>
        <translation>Lit des couches.</translation>
    </message>
    <message>
        <source>Creates layers with all their properties, or replaces them.</source>
        <translation>Crée des couches avec toutes leurs propriétés, ou les remplace.</translation>
    </message>
    <message>
        <source>Creates layers, or switches them on, with stacking order, source, window and border.</source>
        <translation>Crée ou active des couches, avec ordre d’empilement, source, fenêtre et bordure.</translation>
    </message>
    <message>
        <source>Sets the stacking order of layers.</source>
        <translation>Règle l’ordre d’empilement de couches.</translation>
    </message>
    <message>
        <source>Sets name, freeze, monochrome, inversion and flip of layers.</source>
        <translation>Règle nom, gel, monochrome, inversion et retournement de couches.</translation>
    </message>
    <message>
        <source>Selects what layers show, and which part of it.</source>
        <translation>Choisit ce que montrent des couches, et quelle partie.</translation>
    </message>
    <message>
        <source>Moves and resizes layers on their screen, in pixels.</source>
        <translation>Déplace et redimensionne des couches sur leur écran, en pixels.</translation>
    </message>
    <message>
        <source>Masks the edges of layers.</source>
        <translation>Masque les bords de couches.</translation>
    </message>
    <message>
        <source>Shows a test colour instead of the source of layers, or the source again.</source>
        <translation>Affiche une couleur de test à la place de la source de couches, ou de nouveau la source.</translation>
    </message>
    <message>
        <source>Sets the opacity of layers, from 0 (transparent) to 100 (opaque).</source>
        <translation>Règle l’opacité de couches, de 0 (transparent) à 100 (opaque).</translation>
    </message>
    <message>
        <source>Sets contrast, brightness, hue, saturation and gamma of layers.</source>
        <translation>Règle contraste, luminosité, teinte, saturation et gamma de couches.</translation>
    </message>
    <message>
        <source>Sets the shadow of layers.</source>
        <translation>Règle l’ombre de couches.</translation>
    </message>
    <message>
        <source>Sets the border of layers.</source>
        <translation>Règle la bordure de couches.</translation>
    </message>
    <message>
        <source>Selects layers on the device&apos;s own panel.</source>
        <translation>Sélectionne des couches sur la façade de l’appareil.</translation>
    </message>
    <message>
        <source>Sets the under-monitor displays of layers.</source>
        <translation>Règle les étiquettes (UMD) de couches.</translation>
    </message>
    <message>
        <source>Removes the listed layers.</source>
        <translation>Retire les couches indiquées.</translation>
    </message>
    <message>
        <source>Removes all layers of one screen.</source>
        <translation>Retire toutes les couches d’un écran.</translation>
    </message>
    <message>
        <source>Binds layers to partners as cut and fill, or releases them.</source>
        <translation>Associe des couches à des partenaires en découpe et remplissage, ou les libère.</translation>
    </message>
    <message>
        <source>Applies presets.</source>
        <translation>Applique des préréglages.</translation>
    </message>
    <message>
        <source>Lists files.</source>
        <translation>Liste des fichiers.</translation>
    </message>
    <message>
        <source>Deletes files.</source>
        <translation>Supprime des fichiers.</translation>
    </message>
    <message>
        <source>Renames and moves files.</source>
        <translation>Renomme et déplace des fichiers.</translation>
    </message>
    <message>
        <source>Announces files whose content follows.</source>
        <translation>Annonce des fichiers dont le contenu suit.</translation>
    </message>
    <message>
        <source>Makes the device capture images.</source>
        <translation>Fait capturer des images par l’appareil.</translation>
    </message>
    <message>
        <source>Makes the device store its state as presets.</source>
        <translation>Fait enregistrer l’état de l’appareil comme préréglages.</translation>
    </message>
    <message>
        <source>Makes the device store projects.</source>
        <translation>Fait enregistrer des projets par l’appareil.</translation>
    </message>
    <message>
        <source>Makes the device collect logs.</source>
        <translation>Fait collecter des journaux par l’appareil.</translation>
    </message>
    <message>
        <source>Makes the device create EDID files from interfaces.</source>
        <translation>Fait créer des fichiers EDID à partir d’interfaces par l’appareil.</translation>
    </message>
    <message>
        <source>Applies projects.</source>
        <translation>Applique des projets.</translation>
    </message>
    <message>
        <source>Restarts the device or shuts it down.</source>
        <translation>Redémarre ou arrête l’appareil.</translation>
    </message>
    <message>
        <source>Resets the device to factory settings.</source>
        <translation>Réinitialise l’appareil aux réglages d’usine.</translation>
    </message>
    <message>
        <source>Makes the device save its state.</source>
        <translation>Fait enregistrer son état par l’appareil.</translation>
    </message>
    <message>
        <source>Starts, stops or clears the count of lost sources.</source>
        <translation>Démarre, arrête ou efface le comptage des sources perdues.</translation>
    </message>
    <message>
        <source>Makes the device pick the colour at a position.</source>
        <translation>Fait prélever la couleur à une position par l’appareil.</translation>
    </message>
    <message>
        <source>Starts a firmware upgrade from a package that the device already holds.</source>
        <translation>Démarre une mise à jour du micrologiciel depuis un paquet déjà présent sur l’appareil.</translation>
    </message>
    <message>
        <source>Sets the clock of the device, in local time.</source>
        <translation>Règle l’horloge de l’appareil, en heure locale.</translation>
    </message>
    <message>
        <source>Reads how often sources were lost.</source>
        <translation>Lit combien de fois des sources ont été perdues.</translation>
    </message>
    <message>
        <source>Reads the progress of a firmware upgrade, in percent.</source>
        <translation>Lit la progression d’une mise à jour du micrologiciel, en pour cent.</translation>
    </message>
    <message>
        <source>Reads the versions of the device and its units.</source>
        <translation>Lit les versions de l’appareil et de ses unités.</translation>
    </message>
    <message>
        <source>Reads the result of the device&apos;s self check.</source>
        <translation>Lit le résultat de l’autotest de l’appareil.</translation>
    </message>
    <message>
        <source>Reads the progress with which the device loads its stored files.</source>
        <translation>Lit la progression du chargement des fichiers enregistrés de l’appareil.</translation>
    </message>
    <message>
        <source>%1 is out of range</source>
        <translation>%1 est hors plage</translation>
    </message>
</context>
<context>
    <name>Tavoro::Outcome</name>
    <message>
        <source>the device does not know this command</source>
        <translation>l’appareil ne connaît pas cette commande</translation>
    </message>
    <message>
        <source>the device does not accept this data</source>
        <translation>l’appareil n’accepte pas ces données</translation>
    </message>
    <message>
        <source>the device does not have this object</source>
        <translation>l’appareil ne possède pas cet objet</translation>
    </message>
    <message>
        <source>a value is out of range</source>
        <translation>une valeur est hors plage</translation>
    </message>
    <message>
        <source>the data is too long for the device</source>
        <translation>les données sont trop longues pour l’appareil</translation>
    </message>
    <message>
        <source>the device is busy, or the object is in use</source>
        <translation>l’appareil est occupé ou l’objet est utilisé</translation>
    </message>
    <message>
        <source>the content differs from its announcement</source>
        <translation>le contenu diffère de son annonce</translation>
    </message>
    <message>
        <source>the storage of the device is full or has failed</source>
        <translation>le stockage de l’appareil est plein ou en panne</translation>
    </message>
    <message>
        <source>another client controls the device</source>
        <translation>un autre client contrôle l’appareil</translation>
    </message>
    <message>
        <source>another client has changed the device, read it again first</source>
        <translation>un autre client a modifié l’appareil, relisez-le d’abord</translation>
    </message>
    <message>
        <source>the connection was lost</source>
        <translation>la connexion a été perdue</translation>
    </message>
    <message>
        <source>the device did not answer in time</source>
        <translation>l’appareil n’a pas répondu à temps</translation>
    </message>
    <message>
        <source>the connection was lost within the answer</source>
        <translation>la connexion a été perdue pendant la réponse</translation>
    </message>
    <message>
        <source>the device stopped answering</source>
        <translation>l’appareil a cessé de répondre</translation>
    </message>
    <message>
        <source>the answer was not complete in time</source>
        <translation>la réponse n’était pas complète à temps</translation>
    </message>
    <message>
        <source>there is no connection</source>
        <translation>il n’y a pas de connexion</translation>
    </message>
    <message>
        <source>the connection was lost before</source>
        <translation>la connexion a été perdue avant</translation>
    </message>
    <message>
        <source>too many calls are waiting</source>
        <translation>trop d’appels sont en attente</translation>
    </message>
    <message>
        <source>a newer value has replaced it</source>
        <translation>remplacé par une valeur plus récente</translation>
    </message>
    <message>
        <source>it was cancelled</source>
        <translation>annulation</translation>
    </message>
    <message>
        <source>the answer of the device cannot be read</source>
        <translation>la réponse de l’appareil est illisible</translation>
    </message>
    <message>
        <source>the connection was lost before the last packet was sent</source>
        <translation>la connexion a été perdue avant l’envoi du dernier paquet</translation>
    </message>
    <message>
        <source>the device is controlled by %1</source>
        <translation>l’appareil est contrôlé par %1</translation>
    </message>
    <message>
        <source>the request for control</source>
        <translation>la demande de contrôle</translation>
    </message>
    <message>
        <source>the question who holds control</source>
        <translation>la demande d’identité du détenteur du contrôle</translation>
    </message>
    <message>
        <source>unknown operation &quot;%1&quot;</source>
        <translation>opération inconnue «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>%1: %2 was carried out.</source>
        <translation>%1&#xa0;: exécution réussie (%2).</translation>
    </message>
    <message>
        <source>%1: %2 was refused: %3.</source>
        <translation>%1&#xa0;: refus (%2)&#xa0;: %3.</translation>
    </message>
    <message>
        <source>%1: %2 was not sent: %3.</source>
        <translation>%1&#xa0;: non envoyé (%2)&#xa0;: %3.</translation>
    </message>
    <message>
        <source>%1: %2 may or may not have been carried out: %3.</source>
        <translation>%1&#xa0;: exécution incertaine (%2)&#xa0;: %3.</translation>
    </message>
    <message>
        <source>%1: %2 was cancelled.</source>
        <translation>%1&#xa0;: annulation (%2).</translation>
    </message>
    <message>
        <source>Request</source>
        <translation>Requête</translation>
    </message>
    <message>
        <source>%1 holds the lease</source>
        <translation>%1 détient le bail</translation>
    </message>
    <message>
        <source>the device does not support leases</source>
        <translation>l’appareil ne prend pas en charge les baux</translation>
    </message>
    <message>
        <source>the release of the lease</source>
        <translation>la libération du bail</translation>
    </message>
    <message>
        <source>the request for the lease</source>
        <translation>la demande de bail</translation>
    </message>
</context>
<context>
    <name>Tavoro::ProtoModel</name>
    <message>
        <source>the serial number is not 16 hexadecimal digits</source>
        <translation>le numéro de série n’a pas 16 chiffres hexadécimaux</translation>
    </message>
    <message>
        <source>the MAC address is not 12 hexadecimal digits</source>
        <translation>l’adresse MAC n’a pas 12 chiffres hexadécimaux</translation>
    </message>
</context>
<context>
    <name>Tavoro::SSProxy::DeviceManager</name>
    <message>
        <source>The device at %1 is not connected.</source>
        <translation>L’appareil à l’adresse %1 n’est pas connecté.</translation>
    </message>
    <message>
        <source>The device at %1 is controlled by another client.</source>
        <translation>L’appareil à l’adresse %1 est contrôlé par un autre client.</translation>
    </message>
</context>
<context>
    <name>Tavoro::SSProxy::Internal::ChannelLink</name>
    <message>
        <source>no connection in time</source>
        <translation>pas de connexion à temps</translation>
    </message>
    <message>
        <source>there are too many connections</source>
        <translation>il y a trop de connexions</translation>
    </message>
    <message>
        <source>it stopped answering</source>
        <translation>il a cessé de répondre</translation>
    </message>
    <message>
        <source>it sent an invalid frame (%1)</source>
        <translation>il a envoyé une trame non valide (%1)</translation>
    </message>
    <message>
        <source>it did not identify itself in time</source>
        <translation>il ne s’est pas identifié à temps</translation>
    </message>
    <message>
        <source>its identity cannot be read: %1</source>
        <translation>son identité est illisible&#xa0;: %1</translation>
    </message>
    <message>
        <source>it speaks protocol version %1, and only version %2 is supported</source>
        <translation>il utilise la version %1 du protocole, seule la version %2 est prise en charge</translation>
    </message>
    <message>
        <source>it takes packets of 0 bytes</source>
        <translation>il accepte des paquets de 0 octet</translation>
    </message>
    <message>
        <source>another device is there</source>
        <translation>un autre appareil s’y trouve</translation>
    </message>
</context>
<context>
    <name>Tavoro::SSProxy::Internal::ChannelReadiness</name>
    <message>
        <source>no connection yet</source>
        <translation>pas encore de connexion</translation>
    </message>
    <message>
        <source>The device at %1 cannot be reached: %2.</source>
        <translation>L’appareil à l’adresse %1 est injoignable&#xa0;: %2.</translation>
    </message>
</context>
<context>
    <name>Tavoro::SSProxy::Internal::DeviceControl</name>
    <message>
        <source>The device at %1 is controlled by %2.</source>
        <translation>L’appareil à l’adresse %1 est contrôlé par %2.</translation>
    </message>
    <message>
        <source>Could not give up control of the device at %1: %2 (%3).</source>
        <translation>Impossible de rendre le contrôle de l’appareil à l’adresse %1&#xa0;: %2 (%3).</translation>
    </message>
    <message>
        <source>Could not take control of the device at %1: %2 (%3).</source>
        <translation>Impossible de prendre le contrôle de l’appareil à l’adresse %1&#xa0;: %2 (%3).</translation>
    </message>
    <message>
        <source>no answer in time</source>
        <translation>pas de réponse à temps</translation>
    </message>
    <message>
        <source>called on the channels&apos; own thread</source>
        <translation>appelé dans le thread des canaux</translation>
    </message>
    <message>
        <source>too many requests are in flight</source>
        <translation>trop de requêtes sont en cours</translation>
    </message>
    <message>
        <source>the connection was lost</source>
        <translation>la connexion a été perdue</translation>
    </message>
    <message>
        <source>the device refuses</source>
        <translation>l’appareil refuse</translation>
    </message>
    <message>
        <source>its answer is not valid</source>
        <translation>sa réponse n’est pas valide</translation>
    </message>
    <message>
        <source>another client</source>
        <translation>un autre client</translation>
    </message>
</context>
<context>
    <name>Tavoro::SSProxy::Internal::DiscoveryQuery</name>
    <message>
        <source>Cannot search for devices: %1.</source>
        <translation>Recherche d’appareils impossible&#xa0;: %1.</translation>
    </message>
</context>
<context>
    <name>Tavoro::SSProxy::Internal::ResponseMonitor</name>
    <message>
        <source>it left too many requests unanswered</source>
        <translation>il a laissé trop de requêtes sans réponse</translation>
    </message>
    <message>
        <source>it stopped in the middle of a frame</source>
        <translation>il s’est interrompu au milieu d’une trame</translation>
    </message>
</context>
<context>
    <name>Tavoro::SSProxy::Internal::StreamChannel</name>
    <message>
        <source>it has no address</source>
        <translation>il n’a pas d’adresse</translation>
    </message>
    <message>
        <source>the channel is stopped</source>
        <translation>le canal est arrêté</translation>
    </message>
</context>
<context>
    <name>Tavoro::SSProxy::Internal::TcpStream</name>
    <message>
        <source>The remote host closed the connection</source>
        <translation>L’hôte distant a fermé la connexion</translation>
    </message>
</context>
</TS>
