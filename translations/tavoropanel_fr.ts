<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>ChangeEdits</name>
    <message>
        <source>This property cannot be changed now.</source>
        <translation>Cette propriété ne peut pas être modifiée maintenant.</translation>
    </message>
</context>
<context>
    <name>DeleteQuestion</name>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Delete &quot;%1&quot; from the device? This cannot be undone.</source>
        <translation>Supprimer «&#xa0;%1&#xa0;» de l’appareil&#xa0;? Cette action est irréversible.</translation>
    </message>
</context>
<context>
    <name>Details</name>
    <message>
        <source>Preview</source>
        <translation>Prévisualisation</translation>
    </message>
    <message>
        <source>Programme</source>
        <translation>Programme</translation>
    </message>
    <message>
        <source>Internal clock</source>
        <translation>Horloge interne</translation>
    </message>
    <message>
        <source>External signal</source>
        <translation>Signal externe</translation>
    </message>
    <message>
        <source>An input</source>
        <translation>Une entrée</translation>
    </message>
    <message>
        <source>as the signal</source>
        <translation>comme le signal</translation>
    </message>
    <message>
        <source>none</source>
        <translation>aucun</translation>
    </message>
    <message>
        <source>Contrast</source>
        <translation>Contraste</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Luminosité</translation>
    </message>
    <message>
        <source>Hue</source>
        <translation>Teinte</translation>
    </message>
    <message>
        <source>Saturation</source>
        <translation>Saturation</translation>
    </message>
    <message>
        <source>Gamma</source>
        <translation>Gamma</translation>
    </message>
    <message>
        <source>Show pattern</source>
        <translation>Afficher la mire</translation>
    </message>
    <message>
        <source>Pattern</source>
        <translation>Mire</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Vitesse</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Serial number</source>
        <translation>Numéro de série</translation>
    </message>
    <message>
        <source>MAC address</source>
        <translation>Adresse MAC</translation>
    </message>
    <message>
        <source>Cards</source>
        <translation>Cartes</translation>
    </message>
    <message>
        <source>A take swaps preview and programme</source>
        <translation>Le Take permute prévisualisation et programme</translation>
    </message>
    <message>
        <source>Presets go to</source>
        <translation>Destination des préréglages</translation>
    </message>
    <message>
        <source>ZeLK</source>
        <translation>ZeLK</translation>
    </message>
    <message>
        <source>Locked to</source>
        <translation>Verrouillé sur</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>Verrouillé</translation>
    </message>
    <message>
        <source>Convert</source>
        <translation>Convertir</translation>
    </message>
    <message>
        <source>Conversion</source>
        <translation>Conversion</translation>
    </message>
    <message>
        <source>Signal</source>
        <translation>Signal</translation>
    </message>
    <message>
        <source>Colour depth</source>
        <translation>Profondeur de couleur</translation>
    </message>
    <message>
        <source>Copy protection (HDCP)</source>
        <translation>Protection contre la copie (HDCP)</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Largeur</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Hauteur</translation>
    </message>
    <message>
        <source>Refresh rate</source>
        <translation>Fréquence</translation>
    </message>
    <message>
        <source>Interlaced</source>
        <translation>Entrelacé</translation>
    </message>
    <message>
        <source>Colour space</source>
        <translation>Espace colorimétrique</translation>
    </message>
    <message>
        <source>Colour range</source>
        <translation>Plage de couleur</translation>
    </message>
    <message>
        <source>Show a part</source>
        <translation>Afficher une partie</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Gauche</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Haut</translation>
    </message>
    <message>
        <source>Cut out</source>
        <translation>Détourer</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Couleur</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Taille</translation>
    </message>
    <message>
        <source>Outputs</source>
        <translation>Sorties</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Arrière-plan</translation>
    </message>
    <message>
        <source>Left on the canvas</source>
        <translation>Gauche sur le plan de travail</translation>
    </message>
    <message>
        <source>Top on the canvas</source>
        <translation>Haut sur le plan de travail</translation>
    </message>
    <message>
        <source>Physical width</source>
        <translation>Largeur physique</translation>
    </message>
    <message>
        <source>Physical height</source>
        <translation>Hauteur physique</translation>
    </message>
    <message>
        <source>Frozen</source>
        <translation>Figé</translation>
    </message>
    <message>
        <source>Faded to black</source>
        <translation>Fondu au noir</translation>
    </message>
    <message>
        <source>Duration of the fade</source>
        <translation>Durée du fondu</translation>
    </message>
    <message>
        <source>Transition</source>
        <translation>Transition</translation>
    </message>
    <message>
        <source>Duration of the transition</source>
        <translation>Durée de la transition</translation>
    </message>
    <message>
        <source>Direction of the transition</source>
        <translation>Direction de la transition</translation>
    </message>
    <message>
        <source>Edits go to the programme</source>
        <translation>Les modifications vont au programme</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Source</translation>
    </message>
    <message>
        <source>Place in the stack</source>
        <translation>Position dans la pile</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>Opacité</translation>
    </message>
    <message>
        <source>Monochrome</source>
        <translation>Monochrome</translation>
    </message>
    <message>
        <source>Inverted colours</source>
        <translation>Couleurs inversées</translation>
    </message>
    <message>
        <source>Flip</source>
        <translation>Retournement</translation>
    </message>
    <message>
        <source>Show test colour</source>
        <translation>Afficher la couleur de test</translation>
    </message>
    <message>
        <source>Test colour</source>
        <translation>Couleur de test</translation>
    </message>
    <message>
        <source>Mask edges</source>
        <translation>Masquer les bords</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Droite</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Bas</translation>
    </message>
    <message>
        <source>Show border</source>
        <translation>Afficher la bordure</translation>
    </message>
    <message>
        <source>Horizontal width</source>
        <translation>Largeur horizontale</translation>
    </message>
    <message>
        <source>Vertical width</source>
        <translation>Largeur verticale</translation>
    </message>
    <message>
        <source>Show shadow</source>
        <translation>Afficher l’ombre</translation>
    </message>
    <message>
        <source>Soft edge</source>
        <translation>Bord adouci</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Numéro</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Longueur</translation>
    </message>
    <message>
        <source>Picture size</source>
        <translation>Taille de l’image</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Appareil</translation>
    </message>
    <message>
        <source>Switching</source>
        <translation>Commutation</translation>
    </message>
    <message>
        <source>Genlock</source>
        <translation>Genlock</translation>
    </message>
    <message>
        <source>Dynamic range</source>
        <translation>Plage dynamique</translation>
    </message>
    <message>
        <source>Interface</source>
        <translation>Interface</translation>
    </message>
    <message>
        <source>Requested format</source>
        <translation>Format demandé</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Recadrage</translation>
    </message>
    <message>
        <source>Image quality</source>
        <translation>Qualité d’image</translation>
    </message>
    <message>
        <source>Cutout</source>
        <translation>Détourage</translation>
    </message>
    <message>
        <source>Test pattern</source>
        <translation>Mire</translation>
    </message>
    <message>
        <source>Screen</source>
        <translation>Écran</translation>
    </message>
    <message>
        <source>Live</source>
        <translation>Direct</translation>
    </message>
    <message>
        <source>Layer</source>
        <translation>Couche</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>Mask</source>
        <translation>Masque</translation>
    </message>
    <message>
        <source>Border</source>
        <translation>Bordure</translation>
    </message>
    <message>
        <source>Shadow</source>
        <translation>Ombre</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>Logo</source>
        <translation>Logo</translation>
    </message>
    <message>
        <source>Preset of screens</source>
        <translation>Préréglage d’écrans</translation>
    </message>
    <message>
        <source>Preset of the device</source>
        <translation>Préréglage de l’appareil</translation>
    </message>
    <message>
        <source>No signal</source>
        <translation>Pas de signal</translation>
    </message>
    <message>
        <source>interlaced</source>
        <translation>entrelacé</translation>
    </message>
    <message>
        <source>%1 × %2, %3 Hz %4</source>
        <extracomment>Width and height in pixels, refresh rate, &quot;interlaced&quot; or nothing</extracomment>
        <translation>%1 × %2, %3 Hz %4</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Oui</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Non</translation>
    </message>
    <message>
        <source>%1 × %2 px</source>
        <translation>%1 × %2 px</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Aucun</translation>
    </message>
    <message>
        <source>Type %1</source>
        <translation>Type %1</translation>
    </message>
</context>
<context>
    <name>LayerSources</name>
    <message>
        <source>Screen %1</source>
        <translation>Écran %1</translation>
    </message>
    <message>
        <source>Image %1</source>
        <translation>Image %1</translation>
    </message>
    <message>
        <source>%1 – %2</source>
        <extracomment>Name of a source, and the format of its picture</extracomment>
        <translation>%1 – %2</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::Actions</name>
    <message>
        <source>%1: %2</source>
        <extracomment>&quot;Undo&quot; or &quot;Redo&quot;, and what the operator did</extracomment>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Puts the preview of the selected screens on the programme with their transition.</source>
        <translation>Met la prévisualisation des écrans sélectionnés au programme avec leur transition.</translation>
    </message>
    <message>
        <source>Puts the preview of the selected screens on the programme at once.</source>
        <translation>Met la prévisualisation des écrans sélectionnés au programme immédiatement.</translation>
    </message>
    <message>
        <source>Freezes the picture of the selected screens, or releases it.</source>
        <translation>Fige l’image des écrans sélectionnés, ou la libère.</translation>
    </message>
    <message>
        <source>Fades the selected screens to black, or back to the picture.</source>
        <translation>Fait un fondu au noir des écrans sélectionnés, ou revient à l’image.</translation>
    </message>
    <message>
        <source>Selects all screens of the device.</source>
        <translation>Sélectionne tous les écrans de l’appareil.</translation>
    </message>
    <message>
        <source>Takes the last change back.</source>
        <translation>Annule la dernière modification.</translation>
    </message>
    <message>
        <source>Makes the change again that was undone last.</source>
        <translation>Rétablit la dernière modification annulée.</translation>
    </message>
    <message>
        <source>Moves the selected layer up by one.</source>
        <translation>Monte la couche sélectionnée d’un niveau.</translation>
    </message>
    <message>
        <source>Moves the selected layer down by one.</source>
        <translation>Descend la couche sélectionnée d’un niveau.</translation>
    </message>
    <message>
        <source>Moves the selected layer above all others.</source>
        <translation>Place la couche sélectionnée au-dessus de toutes les autres.</translation>
    </message>
    <message>
        <source>Moves the selected layer below all others that are not backgrounds.</source>
        <translation>Place la couche sélectionnée sous toutes les autres qui ne sont pas des arrière-plans.</translation>
    </message>
    <message>
        <source>Increases the opacity of the selected layer by 5 percent.</source>
        <translation>Augmente l’opacité de la couche sélectionnée de 5 pour cent.</translation>
    </message>
    <message>
        <source>Reduces the opacity of the selected layer by 5 percent.</source>
        <translation>Réduit l’opacité de la couche sélectionnée de 5 pour cent.</translation>
    </message>
    <message>
        <source>Saves the selected screens as a preset on the device.</source>
        <translation>Enregistre les écrans sélectionnés comme préréglage sur l’appareil.</translation>
    </message>
    <message>
        <source>Opens a device by its address.</source>
        <translation>Ouvre un appareil par son adresse.</translation>
    </message>
    <message>
        <source>Disconnects the device and removes it from the list.</source>
        <translation>Déconnecte l’appareil et le retire de la liste.</translation>
    </message>
    <message>
        <source>Searches the network for devices, until it is switched off.</source>
        <translation>Recherche des appareils sur le réseau, jusqu’à désactivation.</translation>
    </message>
    <message>
        <source>Tries to connect at once instead of after the pause.</source>
        <translation>Tente de se connecter tout de suite au lieu d’attendre la pause.</translation>
    </message>
    <message>
        <source>Reads the whole device again.</source>
        <translation>Relit tout l’appareil.</translation>
    </message>
    <message>
        <source>Takes control of the device unless another client holds it.</source>
        <translation>Prend le contrôle de l’appareil si aucun autre client ne le détient.</translation>
    </message>
    <message>
        <source>Takes control of the device even if another client holds it.</source>
        <translation>Prend le contrôle de l’appareil même si un autre client le détient.</translation>
    </message>
    <message>
        <source>Gives up control of the device, so that another client can take it.</source>
        <translation>Rend le contrôle de l’appareil, pour qu’un autre client puisse le prendre.</translation>
    </message>
    <message>
        <source>Ends the program. The devices keep their state.</source>
        <translation>Quitte le programme. Les appareils gardent leur état.</translation>
    </message>
    <message>
        <source>Enlarges the canvas.</source>
        <translation>Agrandit le plan de travail.</translation>
    </message>
    <message>
        <source>Reduces the canvas.</source>
        <translation>Réduit le plan de travail.</translation>
    </message>
    <message>
        <source>Shows all screens of the device.</source>
        <translation>Montre tous les écrans de l’appareil.</translation>
    </message>
    <message>
        <source>Shows the window in dark colours.</source>
        <translation>Affiche la fenêtre en couleurs sombres.</translation>
    </message>
    <message>
        <source>Shows the window in light colours.</source>
        <translation>Affiche la fenêtre en couleurs claires.</translation>
    </message>
    <message>
        <source>Shows the window in the colours of the desktop.</source>
        <translation>Affiche la fenêtre dans les couleurs du bureau.</translation>
    </message>
    <message>
        <source>Copies the selected messages of the log as text, or all if none is selected.</source>
        <translation>Copie les messages sélectionnés du journal en texte, ou tous si aucun n’est sélectionné.</translation>
    </message>
    <message>
        <source>Removes the alert of the live bar.</source>
        <translation>Retire l’alerte de la barre de direct.</translation>
    </message>
    <message>
        <source>Lists all keyboard shortcuts.</source>
        <translation>Liste tous les raccourcis clavier.</translation>
    </message>
    <message>
        <source>&amp;Take</source>
        <translation>&amp;Take</translation>
    </message>
    <message>
        <source>&amp;Cut</source>
        <translation>&amp;Cut</translation>
    </message>
    <message>
        <source>F&amp;reeze</source>
        <translation>&amp;Figer</translation>
    </message>
    <message>
        <source>Fade to &amp;black</source>
        <translation>Fondu au &amp;noir</translation>
    </message>
    <message>
        <source>Select &amp;all screens</source>
        <translation>Sélectionner tous les &amp;écrans</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Rétablir</translation>
    </message>
    <message>
        <source>R&amp;aise layer</source>
        <translation>&amp;Monter la couche</translation>
    </message>
    <message>
        <source>L&amp;ower layer</source>
        <translation>&amp;Descendre la couche</translation>
    </message>
    <message>
        <source>Raise layer to &amp;top</source>
        <translation>Couche au &amp;premier plan</translation>
    </message>
    <message>
        <source>Lower layer to botto&amp;m</source>
        <translation>Couche au der&amp;nier plan</translation>
    </message>
    <message>
        <source>More opa&amp;que</source>
        <translation>Plus opa&amp;que</translation>
    </message>
    <message>
        <source>L&amp;ess opaque</source>
        <translation>Mo&amp;ins opaque</translation>
    </message>
    <message>
        <source>&amp;Save preset…</source>
        <translation>&amp;Enregistrer le préréglage…</translation>
    </message>
    <message>
        <source>&amp;Add device…</source>
        <translation>A&amp;jouter un appareil…</translation>
    </message>
    <message>
        <source>Remo&amp;ve device</source>
        <translation>&amp;Supprimer l’appareil</translation>
    </message>
    <message>
        <source>&amp;Find devices</source>
        <translation>Rec&amp;hercher des appareils</translation>
    </message>
    <message>
        <source>Re&amp;connect now</source>
        <translation>Re&amp;connecter maintenant</translation>
    </message>
    <message>
        <source>&amp;Read again</source>
        <translation>&amp;Relire</translation>
    </message>
    <message>
        <source>&amp;Take control</source>
        <translation>&amp;Prendre le contrôle</translation>
    </message>
    <message>
        <source>F&amp;orce control…</source>
        <translation>&amp;Forcer le contrôle…</translation>
    </message>
    <message>
        <source>Re&amp;lease control</source>
        <translation>Rendre &amp;le contrôle</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>Zoom &amp;in</source>
        <translation>Zoom a&amp;vant</translation>
    </message>
    <message>
        <source>Zoom &amp;out</source>
        <translation>Zoom a&amp;rrière</translation>
    </message>
    <message>
        <source>&amp;Fit to window</source>
        <translation>&amp;Ajuster à la fenêtre</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Sombre</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Clair</translation>
    </message>
    <message>
        <source>As the &amp;system</source>
        <translation>Comme le s&amp;ystème</translation>
    </message>
    <message>
        <source>&amp;Copy log</source>
        <translation>Copier le &amp;journal</translation>
    </message>
    <message>
        <source>Dismiss &amp;alert</source>
        <translation>&amp;Effacer l’alerte</translation>
    </message>
    <message>
        <source>&amp;Keyboard shortcuts</source>
        <translation>&amp;Raccourcis clavier</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::AddDeviceDialog</name>
    <message>
        <source>Add a device</source>
        <translation>Ajouter un appareil</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>IP address or host name of the device</source>
        <translation>Adresse IP ou nom d’hôte de l’appareil</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Port</translation>
    </message>
    <message>
        <source>TCP port of the device, 1 to 65535</source>
        <translation>Port TCP de l’appareil, 1 à 65535</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Ajouter</translation>
    </message>
    <message>
        <source>Opens the device at this address</source>
        <translation>Ouvre l’appareil à cette adresse</translation>
    </message>
    <message>
        <source>Closes the dialog without a new device</source>
        <translation>Ferme la boîte de dialogue sans nouvel appareil</translation>
    </message>
    <message>
        <source>&amp;Address:</source>
        <translation>&amp;Adresse&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Port:</source>
        <translation>&amp;Port&#xa0;:</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::CanvasView</name>
    <message>
        <source>Canvas</source>
        <translation>Plan de travail</translation>
    </message>
    <message>
        <source>No layer is selected.</source>
        <translation>Aucune couche n’est sélectionnée.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::Changes</name>
    <message>
        <source>&quot;%1&quot; cannot be undone or redone: the device is no longer open.</source>
        <translation>«&#xa0;%1&#xa0;» ne peut être ni annulé ni rétabli&#xa0;: l’appareil n’est plus ouvert.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::ChoiceEditor</name>
    <message>
        <source>Code %1</source>
        <translation>Code %1</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::ControlBar</name>
    <message>
        <source>Control</source>
        <translation>Contrôle</translation>
    </message>
    <message>
        <source>This panel controls the device.</source>
        <translation>Ce panneau contrôle l’appareil.</translation>
    </message>
    <message>
        <source>Control of the device was released.</source>
        <translation>Le contrôle de l’appareil a été rendu.</translation>
    </message>
    <message>
        <source>No device</source>
        <translation>Aucun appareil</translation>
    </message>
    <message>
        <source>Not controlled</source>
        <translation>Sans contrôle</translation>
    </message>
    <message>
        <source>Controlled by this panel</source>
        <translation>Contrôlé par ce panneau</translation>
    </message>
    <message>
        <source>Controlled by another client</source>
        <translation>Contrôlé par un autre client</translation>
    </message>
    <message>
        <source>Controlled by %1</source>
        <translation>Contrôlé par %1</translation>
    </message>
    <message>
        <source>Force control</source>
        <translation>Forcer le contrôle</translation>
    </message>
    <message>
        <source>Another operator may be working with %1. Take control from them?</source>
        <translation>Un autre opérateur travaille peut-être avec %1. Lui prendre le contrôle&#xa0;?</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::DemoBar</name>
    <message>
        <source>Demo: a simulated device in this program.</source>
        <translation>Démo&#xa0;: un appareil simulé dans ce programme.</translation>
    </message>
    <message>
        <source>Pull the plug</source>
        <translation>Débrancher</translation>
    </message>
    <message>
        <source>Plug it in again</source>
        <translation>Rebrancher</translation>
    </message>
    <message>
        <source>Makes the simulated device go away</source>
        <translation>Fait disparaître l’appareil simulé</translation>
    </message>
    <message>
        <source>Makes the simulated device come back</source>
        <translation>Fait revenir l’appareil simulé</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::DetailsForm</name>
    <message>
        <source>%1 to %2%3</source>
        <extracomment>The range of a number, and its unit or nothing</extracomment>
        <translation>%1 à %2%3</translation>
    </message>
    <message>
        <source>This property cannot be changed.</source>
        <translation>Cette propriété ne peut pas être modifiée.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::DetailsView</name>
    <message>
        <source>Layer</source>
        <translation>Couche</translation>
    </message>
    <message>
        <source>Screen</source>
        <translation>Écran</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>Entrée</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Appareil</translation>
    </message>
    <message>
        <source>Kind of object</source>
        <translation>Sorte d’objet</translation>
    </message>
    <message>
        <source>Selects whose properties are shown</source>
        <translation>Choisit l’objet dont les propriétés sont affichées</translation>
    </message>
    <message>
        <source>Nothing is selected.</source>
        <translation>Rien n’est sélectionné.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::DevicesView</name>
    <message>
        <source>Devices</source>
        <translation>Appareils</translation>
    </message>
    <message>
        <source>The devices with their states. The selected one is shown and operated.</source>
        <translation>Les appareils avec leurs états. Celui qui est sélectionné est affiché et commandé.</translation>
    </message>
    <message>
        <source>No device yet. Add one by its address, or search the network.</source>
        <translation>Pas encore d’appareil. Ajoutez-en un par son adresse, ou recherchez sur le réseau.</translation>
    </message>
    <message>
        <source>Searching the network for devices.</source>
        <translation>Recherche d’appareils sur le réseau.</translation>
    </message>
    <message>
        <source>The search for devices has ended.</source>
        <translation>La recherche d’appareils est terminée.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::FilesView</name>
    <message>
        <source>Add…</source>
        <translation>Ajouter…</translation>
    </message>
    <message>
        <source>Sends images from this computer.</source>
        <translation>Envoie des images de cet ordinateur.</translation>
    </message>
    <message>
        <source>Save a copy…</source>
        <translation>Enregistrer une copie…</translation>
    </message>
    <message>
        <source>Saves the image on this computer.</source>
        <translation>Enregistre l’image sur cet ordinateur.</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Renommer</translation>
    </message>
    <message>
        <source>Renames the selected image (F2).</source>
        <translation>Renomme l’image sélectionnée (F2).</translation>
    </message>
    <message>
        <source>Delete…</source>
        <translation>Supprimer…</translation>
    </message>
    <message>
        <source>Deletes the image from the device.</source>
        <translation>Supprime l’image de l’appareil.</translation>
    </message>
    <message>
        <source>Images on the device</source>
        <translation>Images de l’appareil</translation>
    </message>
    <message>
        <source>Drop image files here to send them to the device.</source>
        <translation>Déposez ici des fichiers d’image pour les envoyer à l’appareil.</translation>
    </message>
    <message>
        <source>Type of new images</source>
        <translation>Type des nouvelles images</translation>
    </message>
    <message>
        <source>Images that are added become files of this type.</source>
        <translation>Les images ajoutées deviennent des fichiers de ce type.</translation>
    </message>
    <message>
        <source>Add images</source>
        <translation>Ajouter des images</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an image.</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas une image.</translation>
    </message>
    <message>
        <source>The device has no room for another image of this type.</source>
        <translation>L’appareil n’a plus de place pour une autre image de ce type.</translation>
    </message>
    <message>
        <source>↑ %1</source>
        <extracomment>Name of a file that is sent to the device</extracomment>
        <translation>↑ %1</translation>
    </message>
    <message>
        <source>Save a copy</source>
        <translation>Enregistrer une copie</translation>
    </message>
    <message>
        <source>↓ %1</source>
        <extracomment>Name of a file that is fetched from the device</extracomment>
        <translation>↓ %1</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::Hint</name>
    <message>
        <source>Select a device to see its screens.</source>
        <translation>Sélectionnez un appareil pour voir ses écrans.</translation>
    </message>
    <message>
        <source>Not connected. This is the last known state of the device.</source>
        <translation>Non connecté. Ceci est le dernier état connu de l’appareil.</translation>
    </message>
    <message>
        <source>The device is not connected.</source>
        <translation>L’appareil n’est pas connecté.</translation>
    </message>
    <message>
        <source>Connecting to the device…</source>
        <translation>Connexion à l’appareil…</translation>
    </message>
    <message>
        <source>Reading the device…</source>
        <translation>Lecture de l’appareil…</translation>
    </message>
    <message>
        <source>The device has no screens.</source>
        <translation>L’appareil n’a pas d’écran.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::ImagesModel</name>
    <message>
        <source>%1, %2, %3</source>
        <extracomment>Type of the file, size of the picture, length of the file</extracomment>
        <translation>%1, %2, %3</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LayerEditor</name>
    <message>
        <source>%1 cannot be changed: another client controls the device.</source>
        <translation>%1 ne peut pas être modifié&#xa0;: un autre client contrôle l’appareil.</translation>
    </message>
    <message>
        <source>%1 cannot be changed: the device is not connected.</source>
        <translation>%1 ne peut pas être modifié&#xa0;: l’appareil n’est pas connecté.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LayerFace</name>
    <message>
        <source>Screen %1</source>
        <translation>Écran %1</translation>
    </message>
    <message>
        <source>Source %1/%2</source>
        <translation>Source %1/%2</translation>
    </message>
    <message>
        <source>%1 × %2</source>
        <translation>%1 × %2</translation>
    </message>
    <message>
        <source>%1×%2i%3</source>
        <translation>%1×%2i%3</translation>
    </message>
    <message>
        <source>%1×%2p%3</source>
        <translation>%1×%2p%3</translation>
    </message>
    <message>
        <source>No source</source>
        <translation>Pas de source</translation>
    </message>
    <message>
        <source>No signal</source>
        <translation>Pas de signal</translation>
    </message>
    <message>
        <source>Frozen</source>
        <translation>Figé</translation>
    </message>
    <message>
        <source>Test colour</source>
        <translation>Couleur de test</translation>
    </message>
    <message>
        <source>Opacity %1 %</source>
        <translation>Opacité %1 %</translation>
    </message>
    <message>
        <source>no source</source>
        <translation>pas de source</translation>
    </message>
    <message>
        <source>%1 at %2, %3</source>
        <translation>%1 en %2, %3</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Image %1</source>
        <translation>Image %1</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LayerMenu</name>
    <message>
        <source>&amp;Source</source>
        <translation>&amp;Source</translation>
    </message>
    <message>
        <source>&amp;Opacity</source>
        <translation>&amp;Opacité</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LayerSources</name>
    <message>
        <source>No source</source>
        <translation>Pas de source</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LiveBar</name>
    <message>
        <source>Some screens</source>
        <translation>Certains écrans</translation>
    </message>
    <message>
        <source>Frozen</source>
        <translation>Figé</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>Noir</translation>
    </message>
    <message>
        <source>Select a device to operate its screens.</source>
        <translation>Sélectionnez un appareil pour commander ses écrans.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 is controlled by another client. Take control to operate it.</source>
        <translation>%1 est contrôlé par un autre client. Prenez le contrôle pour le commander.</translation>
    </message>
    <message>
        <source>Select a screen to operate it.</source>
        <translation>Sélectionnez un écran pour le commander.</translation>
    </message>
    <message>
        <source>Operating %1 of %2.</source>
        <translation>Commande de %1 de %2.</translation>
    </message>
    <message>
        <source>%1 is controlled by %2. Take control to operate it.</source>
        <translation>%1 est contrôlé par %2. Prenez le contrôle pour le commander.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LiveButton</name>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LiveCalls</name>
    <message>
        <source>%1: no answer to the %2 yet.</source>
        <translation>%1&#xa0;: pas encore de réponse (%2).</translation>
    </message>
    <message>
        <source>%1: the connection was lost during the %2. The device is asked for the outcome when it is back.</source>
        <translation>%1&#xa0;: la connexion a été perdue (%2). Le résultat sera demandé à l’appareil à son retour.</translation>
    </message>
    <message>
        <source>%1: the device has carried out the %2.</source>
        <translation>%1&#xa0;: exécuté par l’appareil (%2).</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LiveOperations</name>
    <message>
        <source>take</source>
        <translation>Take</translation>
    </message>
    <message>
        <source>cut</source>
        <translation>cut</translation>
    </message>
    <message>
        <source>freeze</source>
        <translation>gel</translation>
    </message>
    <message>
        <source>release of the freeze</source>
        <translation>fin du gel</translation>
    </message>
    <message>
        <source>fade to black</source>
        <translation>fondu au noir</translation>
    </message>
    <message>
        <source>fade to the picture</source>
        <translation>retour à l’image</translation>
    </message>
    <message>
        <source>move of the T-bar</source>
        <translation>mouvement du T-bar</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::LogView</name>
    <message>
        <source>&amp;Show:</source>
        <translation>&amp;Afficher&#xa0;:</translation>
    </message>
    <message>
        <source>Messages that are shown</source>
        <translation>Messages affichés</translation>
    </message>
    <message>
        <source>Shows all messages, only problems, or every request</source>
        <translation>Affiche tous les messages, seulement les problèmes, ou chaque requête</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>Journal</translation>
    </message>
    <message>
        <source>The messages of this run, the latest one last</source>
        <translation>Les messages de cette session, le plus récent en dernier</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Messages</translation>
    </message>
    <message>
        <source>Problems only</source>
        <translation>Problèmes seulement</translation>
    </message>
    <message>
        <source>Every request</source>
        <translation>Chaque requête</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::MainWindow</name>
    <message>
        <source>Operator&apos;s panel</source>
        <translation>Panneau de l’opérateur</translation>
    </message>
    <message>
        <source>Parts below the canvas</source>
        <translation>Parties sous le plan de travail</translation>
    </message>
    <message>
        <source>Selects presets, sources, images or the log</source>
        <translation>Choisit les préréglages, les sources, les images ou le journal</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>&amp;Device</source>
        <translation>&amp;Appareil</translation>
    </message>
    <message>
        <source>&amp;Live</source>
        <translation>&amp;Direct</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Édition</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>A&amp;ffichage</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>Aid&amp;e</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Contrôle</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>Appareils</translation>
    </message>
    <message>
        <source>Canvas</source>
        <translation>Plan de travail</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Détails</translation>
    </message>
    <message>
        <source>Presets</source>
        <translation>Préréglages</translation>
    </message>
    <message>
        <source>Sources</source>
        <translation>Sources</translation>
    </message>
    <message>
        <source>Images</source>
        <translation>Images</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>Journal</translation>
    </message>
    <message>
        <source>Live controls</source>
        <translation>Commandes du direct</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::Messages</name>
    <message>
        <source>Detail</source>
        <translation>Détail</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Avertissement</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Heure</translation>
    </message>
    <message>
        <source>Severity</source>
        <translation>Gravité</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Appareil</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Message</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::Options</name>
    <message>
        <source>Operates networked video processors.</source>
        <translation>Commande des processeurs vidéo en réseau.</translation>
    </message>
    <message>
        <source>Shows this help.</source>
        <translation>Affiche cette aide.</translation>
    </message>
    <message>
        <source>Shows the version.</source>
        <translation>Affiche la version.</translation>
    </message>
    <message>
        <source>Starts with a simulated device. Other devices are neither opened nor stored.</source>
        <translation>Démarre avec un appareil simulé. Les autres appareils ne sont ni ouverts ni enregistrés.</translation>
    </message>
    <message>
        <source>Colours: dark, light or system.</source>
        <translation>Couleurs&#xa0;: dark, light ou system.</translation>
    </message>
    <message>
        <source>File that keeps the devices.</source>
        <translation>Fichier qui conserve les appareils.</translation>
    </message>
    <message>
        <source>Devices to open: HOST or HOST:PORT.</source>
        <translation>Appareils à ouvrir&#xa0;: HOST ou HOST:PORT.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a theme; use dark, light or system.</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un thème&#xa0;; utilisez dark, light ou system.</translation>
    </message>
    <message>
        <source>DEVICE is a device to open: HOST or HOST:PORT.</source>
        <translation>DEVICE est un appareil à ouvrir&#xa0;: HOST ou HOST:PORT.</translation>
    </message>
    <message>
        <source>The window was closed.</source>
        <translation>La fenêtre a été fermée.</translation>
    </message>
    <message>
        <source>The command line is not valid.</source>
        <translation>La ligne de commande n’est pas valide.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::PresetList</name>
    <message>
        <source>&amp;Apply</source>
        <translation>&amp;Appliquer</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>&amp;Renommer</translation>
    </message>
    <message>
        <source>&amp;Delete…</source>
        <translation>&amp;Supprimer…</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::PresetsModel</name>
    <message>
        <source>The layout of this preset is not known.</source>
        <translation>La disposition de ce préréglage est inconnue.</translation>
    </message>
    <message>
        <source>%1; layers: %2</source>
        <extracomment>Names of screens, number of layers</extracomment>
        <translation>%1&#xa0;; couches&#xa0;: %2</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::PresetsView</name>
    <message>
        <source>Presets</source>
        <translation>Préréglages</translation>
    </message>
    <message>
        <source>A click or Return applies a preset.</source>
        <translation>Un clic ou Entrée applique un préréglage.</translation>
    </message>
    <message>
        <source>The device has no presets. Save the first one.</source>
        <translation>L’appareil n’a pas de préréglage. Enregistrez le premier.</translation>
    </message>
    <message>
        <source>Apply to the preview</source>
        <translation>Appliquer à la prévisualisation</translation>
    </message>
    <message>
        <source>Apply as it was saved</source>
        <translation>Appliquer tel qu’enregistré</translation>
    </message>
    <message>
        <source>Where presets are applied</source>
        <translation>Où les préréglages sont appliqués</translation>
    </message>
    <message>
        <source>A preset goes to the preview, or restores preview, programme and screens as they were saved.</source>
        <translation>Un préréglage va à la prévisualisation, ou rétablit prévisualisation, programme et écrans tels qu’enregistrés.</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Renommer</translation>
    </message>
    <message>
        <source>Delete…</source>
        <translation>Supprimer…</translation>
    </message>
    <message>
        <source>Renames the selected preset (F2).</source>
        <translation>Renomme le préréglage sélectionné (F2).</translation>
    </message>
    <message>
        <source>Deletes the selected preset from the device.</source>
        <translation>Supprime le préréglage sélectionné de l’appareil.</translation>
    </message>
    <message>
        <source>Preset %1</source>
        <translation>Préréglage %1</translation>
    </message>
    <message>
        <source>The device has no room for another preset.</source>
        <translation>L’appareil n’a plus de place pour un autre préréglage.</translation>
    </message>
    <message>
        <source>The preset &quot;%1&quot; was applied.</source>
        <translation>Le préréglage «&#xa0;%1&#xa0;» a été appliqué.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::SavePresetDialog</name>
    <message>
        <source>The selected screens: %1</source>
        <translation>Les écrans sélectionnés&#xa0;: %1</translation>
    </message>
    <message>
        <source>All screens of the device</source>
        <translation>Tous les écrans de l’appareil</translation>
    </message>
    <message>
        <source>Save preset</source>
        <translation>Enregistrer le préréglage</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>&amp;Nom</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::ScreenButton</name>
    <message>
        <source>Not connected</source>
        <translation>Non connecté</translation>
    </message>
    <message>
        <source>Black, frozen</source>
        <translation>Noir, figé</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>Noir</translation>
    </message>
    <message>
        <source>Frozen</source>
        <translation>Figé</translation>
    </message>
    <message>
        <source>On air</source>
        <translation>À l’antenne</translation>
    </message>
    <message>
        <source>Screen %1</source>
        <translation>Écran %1</translation>
    </message>
    <message>
        <source>Selects the screen for take, cut, T-bar, freeze and fade to black. Its state: %1.</source>
        <translation>Sélectionne l’écran pour Take, cut, T-bar, gel et fondu au noir. Son état&#xa0;: %1.</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::ScreenItem</name>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1, %2, %3</source>
        <translation>%1, %2, %3</translation>
    </message>
    <message>
        <source>Frozen</source>
        <translation>Figé</translation>
    </message>
    <message>
        <source>Faded to black</source>
        <translation>Fondu au noir</translation>
    </message>
    <message>
        <source>Test pattern</source>
        <translation>Mire</translation>
    </message>
    <message>
        <source>Programme</source>
        <translation>Programme</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Prévisualisation</translation>
    </message>
    <message>
        <source>PGM</source>
        <translation>PGM</translation>
    </message>
    <message>
        <source>PVW</source>
        <translation>PVW</translation>
    </message>
    <message>
        <source>✓ %1</source>
        <translation>✓ %1</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::SelectionFrame</name>
    <message>
        <source>%1, %2  ·  %3</source>
        <translation>%1, %2  ·  %3</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::SessionsModel</name>
    <message>
        <source>%1 (%2): %3</source>
        <translation>%1 (%2)&#xa0;: %3</translation>
    </message>
    <message>
        <source>Controlled by another client</source>
        <translation>Contrôlé par un autre client</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>Déconnecté</translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation>Connexion</translation>
    </message>
    <message>
        <source>Reading</source>
        <translation>Lecture</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Prêt</translation>
    </message>
    <message>
        <source>Connection lost</source>
        <translation>Connexion perdue</translation>
    </message>
    <message>
        <source>Reading, %1 %</source>
        <translation>Lecture, %1 %</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1; next attempt at %2</source>
        <translation>%1&#xa0;; prochaine tentative à %2</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::ShortcutsDialog</name>
    <message>
        <source>Keyboard shortcuts</source>
        <translation>Raccourcis clavier</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Touches</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Action</translation>
    </message>
    <message>
        <source>Effect</source>
        <translation>Effet</translation>
    </message>
    <message>
        <source>The keys, the action and what it does</source>
        <translation>Les touches, l’action et ce qu’elle fait</translation>
    </message>
    <message>
        <source>Closes the list</source>
        <translation>Ferme la liste</translation>
    </message>
    <message>
        <source>Selects or deselects a screen for the live controls.</source>
        <translation>Sélectionne ou désélectionne un écran pour les commandes du direct.</translation>
    </message>
    <message>
        <source>Moves to the next control. The space bar then operates a button that has the focus.</source>
        <translation>Passe à la commande suivante. La barre d’espace actionne alors le bouton qui a le focus.</translation>
    </message>
    <message>
        <source>Moves the T-bar while it has the focus.</source>
        <translation>Déplace le T-bar tant qu’il a le focus.</translation>
    </message>
    <message>
        <source>On the canvas: selects the next layer of the selected screens.</source>
        <translation>Sur le plan de travail&#xa0;: sélectionne la couche suivante des écrans sélectionnés.</translation>
    </message>
    <message>
        <source>On the canvas: moves the selected layer by 1 pixel, with Shift by 10. Without one: selects scene and screen.</source>
        <translation>Sur le plan de travail&#xa0;: déplace la couche sélectionnée de 1 pixel, de 10 avec Maj. Sans couche&#xa0;: choisit la scène et l’écran.</translation>
    </message>
    <message>
        <source>On the canvas: moves the right and lower edges of the selected layer.</source>
        <translation>Sur le plan de travail&#xa0;: déplace les bords droit et inférieur de la couche sélectionnée.</translation>
    </message>
    <message>
        <source>Opens the menu of the selected layer or preset.</source>
        <translation>Ouvre le menu de la couche ou du préréglage sélectionné.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::SourceEditor</name>
    <message>
        <source>Another source</source>
        <translation>Une autre source</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::SourcesModel</name>
    <message>
        <source>Not connected</source>
        <translation>Non connecté</translation>
    </message>
    <message>
        <source>The card does not work</source>
        <translation>La carte ne fonctionne pas</translation>
    </message>
    <message>
        <source>%1, %2 bit</source>
        <extracomment>Format of an input, bits of its colours</extracomment>
        <translation>%1, %2 bits</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::SourcesView</name>
    <message>
        <source>Inputs</source>
        <translation>Entrées</translation>
    </message>
    <message>
        <source>Show in the selected layer</source>
        <translation>Montrer dans la couche sélectionnée</translation>
    </message>
    <message>
        <source>Makes this input the source of the selected layer.</source>
        <translation>Fait de cette entrée la source de la couche sélectionnée.</translation>
    </message>
    <message>
        <source>The inputs of the device with their signals. An input can be dragged onto a layer of the canvas.</source>
        <translation>Les entrées de l’appareil avec leurs signaux. Une entrée peut être glissée sur une couche du plan de travail.</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::StatusLine</name>
    <message>
        <source>Dismiss</source>
        <translation>Effacer</translation>
    </message>
    <message>
        <source>State of the live controls</source>
        <translation>État des commandes du direct</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Not possible</source>
        <translation>Impossible</translation>
    </message>
    <message>
        <source>Waiting</source>
        <translation>En attente</translation>
    </message>
    <message>
        <source>Outcome unknown</source>
        <translation>Résultat inconnu</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Échec</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Terminé</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::TBar</name>
    <message>
        <source>T-bar</source>
        <translation>T-bar</translation>
    </message>
    <message>
        <source>Takes by hand: moves from preview to programme, in percent. At 100 percent the device takes.</source>
        <translation>Take manuel&#xa0;: passe de la prévisualisation au programme, en pour cent. À 100 pour cent, l’appareil exécute le Take.</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
</context>
<context>
    <name>Tavoro::Panel::TransferRow</name>
    <message>
        <source>✓ Done</source>
        <translation>✓ Terminé</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Annulé</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Cancel: %1</source>
        <translation>Annuler&#xa0;: %1</translation>
    </message>
    <message>
        <source>Ends the transfer. The device keeps what it had.</source>
        <translation>Arrête le transfert. L’appareil garde ce qu’il avait.</translation>
    </message>
    <message>
        <source>%1 %, %2/s</source>
        <extracomment>Share of a transfer in percent, bytes per second with their unit</extracomment>
        <translation>%1 %, %2/s</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Close: %1</source>
        <translation>Fermer&#xa0;: %1</translation>
    </message>
    <message>
        <source>Removes this line.</source>
        <translation>Retire cette ligne.</translation>
    </message>
</context>
<context>
    <name>UndoSteps</name>
    <message>
        <source>rename device</source>
        <translation>renommer l’appareil</translation>
    </message>
    <message>
        <source>change genlock</source>
        <translation>modifier le Genlock</translation>
    </message>
    <message>
        <source>change swap at a take</source>
        <translation>modifier la permutation au Take</translation>
    </message>
    <message>
        <source>change ZeLK</source>
        <translation>modifier ZeLK</translation>
    </message>
    <message>
        <source>change groups</source>
        <translation>modifier les groupes</translation>
    </message>
    <message>
        <source>change backup inputs</source>
        <translation>modifier les entrées de secours</translation>
    </message>
    <message>
        <source>change output mapping</source>
        <translation>modifier l’affectation des sorties</translation>
    </message>
    <message>
        <source>change dynamic range</source>
        <translation>modifier la plage dynamique</translation>
    </message>
    <message>
        <source>change where presets go</source>
        <translation>modifier la destination des préréglages</translation>
    </message>
    <message>
        <source>rename interface</source>
        <translation>renommer l’interface</translation>
    </message>
    <message>
        <source>change test pattern</source>
        <translation>modifier la mire</translation>
    </message>
    <message>
        <source>change format</source>
        <translation>modifier le format</translation>
    </message>
    <message>
        <source>change image quality</source>
        <translation>modifier la qualité d’image</translation>
    </message>
    <message>
        <source>crop input</source>
        <translation>recadrer l’entrée</translation>
    </message>
    <message>
        <source>change cutout</source>
        <translation>modifier le détourage</translation>
    </message>
    <message>
        <source>change copy protection</source>
        <translation>modifier la protection contre la copie</translation>
    </message>
    <message>
        <source>change colour depth</source>
        <translation>modifier la profondeur de couleur</translation>
    </message>
    <message>
        <source>change colour space</source>
        <translation>modifier l’espace colorimétrique</translation>
    </message>
    <message>
        <source>change colour range</source>
        <translation>modifier la plage de couleur</translation>
    </message>
    <message>
        <source>change format mapping</source>
        <translation>modifier la correspondance de formats</translation>
    </message>
    <message>
        <source>change screen</source>
        <translation>modifier l’écran</translation>
    </message>
    <message>
        <source>rename screen</source>
        <translation>renommer l’écran</translation>
    </message>
    <message>
        <source>change background</source>
        <translation>modifier l’arrière-plan</translation>
    </message>
    <message>
        <source>move screen</source>
        <translation>déplacer l’écran</translation>
    </message>
    <message>
        <source>change physical size</source>
        <translation>modifier les dimensions physiques</translation>
    </message>
    <message>
        <source>change where edits go</source>
        <translation>modifier la destination des modifications</translation>
    </message>
    <message>
        <source>select screen</source>
        <translation>sélectionner l’écran</translation>
    </message>
    <message>
        <source>freeze</source>
        <translation>gel</translation>
    </message>
    <message>
        <source>fade to black</source>
        <translation>fondu au noir</translation>
    </message>
    <message>
        <source>change transition</source>
        <translation>modifier la transition</translation>
    </message>
    <message>
        <source>create layer</source>
        <translation>créer la couche</translation>
    </message>
    <message>
        <source>change stacking order</source>
        <translation>modifier l’ordre d’empilement</translation>
    </message>
    <message>
        <source>change layer</source>
        <translation>modifier la couche</translation>
    </message>
    <message>
        <source>change source</source>
        <translation>modifier la source</translation>
    </message>
    <message>
        <source>move layer</source>
        <translation>déplacer la couche</translation>
    </message>
    <message>
        <source>change mask</source>
        <translation>modifier le masque</translation>
    </message>
    <message>
        <source>change test colour</source>
        <translation>modifier la couleur de test</translation>
    </message>
    <message>
        <source>change opacity</source>
        <translation>modifier l’opacité</translation>
    </message>
    <message>
        <source>change shadow</source>
        <translation>modifier l’ombre</translation>
    </message>
    <message>
        <source>change border</source>
        <translation>modifier la bordure</translation>
    </message>
    <message>
        <source>select layer</source>
        <translation>sélectionner la couche</translation>
    </message>
    <message>
        <source>change under-monitor display</source>
        <translation>modifier l’étiquette (UMD)</translation>
    </message>
    <message>
        <source>change cut and fill</source>
        <translation>modifier découpe et remplissage</translation>
    </message>
    <message>
        <source>remove layer</source>
        <translation>retirer la couche</translation>
    </message>
    <message>
        <source>rename file</source>
        <translation>renommer le fichier</translation>
    </message>
    <message>
        <source>%1 on %2</source>
        <extracomment>What the operator did, the name of the device</extracomment>
        <translation>%1 sur %2</translation>
    </message>
    <message>
        <source>%1 on %2, not connected</source>
        <translation>%1 sur %2, non connecté</translation>
    </message>
</context>
</TS>
