<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR">
<context>
    <name>ArtworkTile</name>
    <message>
        <source>Album artwork</source>
        <translation type="vanished">Pochette de l’album</translation>
    </message>
    <message>
        <source>Album artwork, empty</source>
        <translation type="vanished">Pochette de l’album, vide</translation>
    </message>
</context>
<context>
    <name>ArtworkView</name>
    <message>
        <source>Explicit</source>
        <translation type="vanished">Contenu explicite</translation>
    </message>
</context>
<context>
    <name>ContextMenu</name>
    <message>
        <source>Menu</source>
        <translation type="vanished">Menu</translation>
    </message>
</context>
<context>
    <name>CopyMenu</name>
    <message>
        <source>Copy</source>
        <translation type="vanished">Copier</translation>
    </message>
</context>
<context>
    <name>DetailAlerts</name>
    <message>
        <source>Open Music</source>
        <translation type="vanished">Ouvrir Musique</translation>
    </message>
    <message>
        <source>Open Settings</source>
        <translation type="vanished">Ouvrir les paramètres</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="vanished">Annuler</translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="vanished">OK</translation>
    </message>
    <message>
        <source>Song Not Added to Library</source>
        <translation type="vanished">Morceau absent de la bibliothèque</translation>
    </message>
    <message>
        <source>This song needs to be added to your Music Library to access its information. You can do this in the Music app.</source>
        <translation type="vanished">Ce morceau doit être ajouté à votre bibliothèque musicale pour que ses informations soient accessibles. Vous pouvez l’ajouter dans l’application Musique.</translation>
    </message>
    <message>
        <source>No Music Access</source>
        <translation type="vanished">Pas d’accès à la musique</translation>
    </message>
    <message>
        <source>Trackwise does not currently have access to your music library. Please turn on Media &amp; Apple Music access in the Settings app.</source>
        <translation type="vanished">Trackwise n’a actuellement pas accès à votre bibliothèque musicale. Veuillez activer l’accès à «&#xa0;Médias et Apple Music&#xa0;» dans l’application Paramètres.</translation>
    </message>
    <message>
        <source>Trackwise does not have access to your music library due to restrictions enabled on your device.</source>
        <translation type="vanished">Trackwise n’a pas accès à votre bibliothèque musicale en raison de restrictions activées sur votre appareil.</translation>
    </message>
    <message>
        <source>No Song Playing</source>
        <translation type="vanished">Aucun morceau en cours de lecture</translation>
    </message>
    <message>
        <source>Would you like to play something?</source>
        <translation type="vanished">Voulez-vous écouter quelque chose&#x202f;?</translation>
    </message>
</context>
<context>
    <name>DetailView</name>
    <message>
        <source>Select Song</source>
        <translation type="vanished">Choisir un morceau</translation>
    </message>
    <message>
        <source>More</source>
        <translation type="vanished">Plus</translation>
    </message>
    <message>
        <source>No Song Selected</source>
        <translation type="vanished">Aucun morceau choisi</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Copy</source>
        <translation type="vanished">Copier</translation>
    </message>
</context>
<context>
    <name>EmptyStateView</name>
    <message>
        <source>Choose Folder…</source>
        <translation type="vanished">Choisir un dossier…</translation>
    </message>
</context>
<context>
    <name>FolderList</name>
    <message>
        <source>Remove %1</source>
        <translation type="vanished">Retirer %1</translation>
    </message>
</context>
<context>
    <name>InformationHeader</name>
    <message>
        <source>Information</source>
        <translation type="vanished">Informations</translation>
    </message>
    <message>
        <source>Show Less</source>
        <translation type="vanished">Afficher moins</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation type="vanished">Afficher plus</translation>
    </message>
</context>
<context>
    <name>LibraryAccessView</name>
    <message>
        <source>“Trackwise” would like to access your music library</source>
        <translation type="vanished">«&#xa0;Trackwise&#xa0;» souhaite accéder à votre bibliothèque musicale</translation>
    </message>
    <message>
        <source>It shows what your library knows about a song. It reads the music in these folders and never changes it.</source>
        <translation type="vanished">L’application affiche ce que votre bibliothèque sait d’un morceau. Elle lit les fichiers de musique de ces dossiers sans jamais les modifier.</translation>
    </message>
    <message>
        <source>Choose Another Folder…</source>
        <translation type="vanished">Choisir un autre dossier…</translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="vanished">OK</translation>
    </message>
    <message>
        <source>Don&apos;t Allow</source>
        <translation type="vanished">Ne pas autoriser</translation>
    </message>
</context>
<context>
    <name>LyricsView</name>
    <message>
        <source>Lyrics</source>
        <translation type="vanished">Paroles</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Trackwise</source>
        <translation type="vanished">Trackwise</translation>
    </message>
</context>
<context>
    <name>MusicAppLink</name>
    <message>
        <source>Open Music app</source>
        <translation type="vanished">Ouvrir l’application Musique</translation>
    </message>
</context>
<context>
    <name>PickerPages</name>
    <message>
        <source>Search Results</source>
        <translation type="vanished">Résultats de la recherche</translation>
    </message>
</context>
<context>
    <name>PickerTabs</name>
    <message>
        <source>Songs</source>
        <translation type="vanished">Morceaux</translation>
    </message>
    <message>
        <source>Artists</source>
        <translation type="vanished">Artistes</translation>
    </message>
    <message>
        <source>Albums</source>
        <translation type="vanished">Albums</translation>
    </message>
    <message>
        <source>Recently Added</source>
        <translation type="vanished">Ajouts récents</translation>
    </message>
    <message>
        <source>Lists</source>
        <translation type="vanished">Listes</translation>
    </message>
</context>
<context>
    <name>PickerTitleBar</name>
    <message>
        <source>Back</source>
        <translation type="vanished">Retour</translation>
    </message>
    <message>
        <source>Scan Again</source>
        <translation type="vanished">Relancer l’analyse</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="vanished">Annuler</translation>
    </message>
</context>
<context>
    <name>PlaybackRow</name>
    <message>
        <source>NOW PLAYING</source>
        <translation type="vanished">LECTURE EN COURS</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation type="vanished">Pause</translation>
    </message>
    <message>
        <source>Play</source>
        <translation type="vanished">Lecture</translation>
    </message>
</context>
<context>
    <name>PushedView</name>
    <message>
        <source>Back</source>
        <translation type="vanished">Retour</translation>
    </message>
</context>
<context>
    <name>QGuiApplication</name>
    <message>
        <source>QT_LAYOUT_DIRECTION</source>
        <translation type="vanished">LTR</translation>
    </message>
</context>
<context>
    <name>ReviewCard</name>
    <message>
        <source>Do you like Trackwise?</source>
        <translation type="vanished">Aimez-vous Trackwise&#x202f;?</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation type="vanished">Pas maintenant</translation>
    </message>
    <message>
        <source>Write a Review</source>
        <translation type="vanished">Rédiger un avis</translation>
    </message>
</context>
<context>
    <name>ScanBanner</name>
    <message>
        <source>Stop Reading Music</source>
        <translation type="vanished">Arrêter l’analyse de la musique</translation>
    </message>
</context>
<context>
    <name>SearchField</name>
    <message>
        <source>Search Songs</source>
        <translation type="vanished">Rechercher des morceaux</translation>
    </message>
    <message>
        <source>Clear Search</source>
        <translation type="vanished">Effacer la recherche</translation>
    </message>
</context>
<context>
    <name>SectionIndex</name>
    <message>
        <source>Letters</source>
        <translation type="vanished">Lettres</translation>
    </message>
</context>
<context>
    <name>SettingsView</name>
    <message>
        <source>Settings</source>
        <translation type="vanished">Paramètres</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation type="vanished">Automatique</translation>
    </message>
    <message>
        <source>Light</source>
        <translation type="vanished">Clair</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation type="vanished">Sombre</translation>
    </message>
    <message>
        <source>Reduced</source>
        <translation type="vanished">Réduites</translation>
    </message>
    <message>
        <source>Full</source>
        <translation type="vanished">Complètes</translation>
    </message>
    <message>
        <source>Done</source>
        <translation type="vanished">Terminé</translation>
    </message>
    <message>
        <source>Music</source>
        <translation type="vanished">Musique</translation>
    </message>
    <message>
        <source>Music access</source>
        <translation type="vanished">Accès à la musique</translation>
    </message>
    <message>
        <source>The system does not let Trackwise read your music folders.</source>
        <translation type="vanished">Le système n’autorise pas Trackwise à lire vos dossiers de musique.</translation>
    </message>
    <message>
        <source>Trackwise reads your music and never changes it.</source>
        <translation type="vanished">Trackwise lit vos fichiers de musique sans jamais les modifier.</translation>
    </message>
    <message>
        <source>Add Music Folder…</source>
        <translation type="vanished">Ajouter un dossier de musique…</translation>
    </message>
    <message>
        <source>Scan Again</source>
        <translation type="vanished">Relancer l’analyse</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation type="vanished">Microphone</translation>
    </message>
    <message>
        <source>Microphone access</source>
        <translation type="vanished">Accès au microphone</translation>
    </message>
    <message>
        <source>For recognizing the music around you. What is heard stays on this device.</source>
        <translation type="vanished">Pour reconnaître la musique autour de vous. Ce qui est entendu reste sur cet appareil.</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation type="vanished">Apparence</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation type="vanished">Thème</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation type="vanished">Animations</translation>
    </message>
    <message>
        <source>Reduced motion fades where it would slide.</source>
        <translation type="vanished">Les animations réduites remplacent les glissements par des fondus.</translation>
    </message>
    <message>
        <source>Text size of the desktop</source>
        <translation type="vanished">Taille du texte du bureau</translation>
    </message>
    <message>
        <source>Players to Ignore</source>
        <translation type="vanished">Lecteurs à ignorer</translation>
    </message>
    <message>
        <source>Other players are listed here while they run.</source>
        <translation type="vanished">Les autres lecteurs apparaissent ici tant qu’ils sont ouverts.</translation>
    </message>
    <message>
        <source>Ignore %1</source>
        <translation type="vanished">Ignorer %1</translation>
    </message>
</context>
<context>
    <name>SongPicker</name>
    <message>
        <source>No Results</source>
        <translation type="vanished">Aucun résultat</translation>
    </message>
    <message>
        <source>No song matches “%1”.</source>
        <translation type="vanished">Aucun morceau ne correspond à «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>Looking for Music</source>
        <translation type="vanished">Recherche de musique</translation>
    </message>
    <message>
        <source>Songs appear here as soon as they have been read.</source>
        <translation type="vanished">Les morceaux apparaissent ici dès qu’ils ont été analysés.</translation>
    </message>
    <message>
        <source>No Music Found</source>
        <translation type="vanished">Aucune musique trouvée</translation>
    </message>
    <message>
        <source>Add songs to your music folder, or choose the folder in which your music is.</source>
        <translation type="vanished">Ajoutez des morceaux à votre dossier de musique ou choisissez le dossier où se trouve votre musique.</translation>
    </message>
    <message>
        <source>Unknown Artist</source>
        <translation type="vanished">Artiste inconnu</translation>
    </message>
    <message>
        <source>Unknown Title</source>
        <translation type="vanished">Titre inconnu</translation>
    </message>
    <message>
        <source>Unknown Album</source>
        <translation type="vanished">Album inconnu</translation>
    </message>
    <message numerus="yes">
        <source>%n song</source>
        <translation type="vanished">
            <numerusform>%n morceau</numerusform>
            <numerusform>%n morceaux</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n songs</source>
        <translation type="vanished">
            <numerusform>%n morceau</numerusform>
            <numerusform>%n morceaux</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TextSizeSlider</name>
    <message>
        <source>Text size</source>
        <translation type="vanished">Taille du texte</translation>
    </message>
</context>
<context>
    <name>trackwise::AddressOpening</name>
    <message>
        <source>Song Not Found</source>
        <translation type="vanished">Morceau introuvable</translation>
    </message>
    <message>
        <source>There is no song “%1” in your music library. Music folders are chosen in the settings.</source>
        <translation type="vanished">Votre bibliothèque musicale ne contient aucun morceau «&#xa0;%1&#xa0;». Les dossiers de musique se choisissent dans les paramètres.</translation>
    </message>
    <message>
        <source>There is no file “%1”.</source>
        <translation type="vanished">Le fichier «&#xa0;%1&#xa0;» n’existe pas.</translation>
    </message>
</context>
<context>
    <name>trackwise::CopyableRow</name>
    <message>
        <source>Copy</source>
        <translation type="vanished">Copier</translation>
    </message>
</context>
<context>
    <name>trackwise::DetailViewController</name>
    <message>
        <source>Lyrics</source>
        <translation type="vanished">Paroles</translation>
    </message>
</context>
<context>
    <name>trackwise::Launch</name>
    <message>
        <source>Cancel</source>
        <translation type="vanished">Annuler</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation type="vanished">Quitter</translation>
    </message>
    <message>
        <source>A new library can be made from your music folders. The old file is kept under another name; what only it knows, such as play counts, starts anew.</source>
        <translation type="vanished">Une nouvelle bibliothèque peut être créée à partir de vos dossiers de musique. L’ancien fichier est conservé sous un autre nom&#x202f;; ce que lui seul contient, comme le nombre d’écoutes, repart de zéro.</translation>
    </message>
    <message>
        <source>New Library</source>
        <translation type="vanished">Nouvelle bibliothèque</translation>
    </message>
    <message>
        <source>Music Library Unreadable</source>
        <translation type="vanished">Bibliothèque musicale illisible</translation>
    </message>
    <message>
        <source>Show Demo</source>
        <translation type="vanished">Afficher la démo</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation type="vanished">Pas maintenant</translation>
    </message>
    <message>
        <source>No Music Found</source>
        <translation type="vanished">Aucune musique trouvée</translation>
    </message>
    <message>
        <source>There are no songs in your music folder. Would you like to look around with a dozen demo songs?</source>
        <translation type="vanished">Votre dossier de musique ne contient aucun morceau. Voulez-vous découvrir Trackwise avec une douzaine de morceaux de démonstration&#x202f;?</translation>
    </message>
</context>
<context>
    <name>trackwise::LibraryListModel</name>
    <message>
        <source>explicit</source>
        <translation type="vanished">contenu explicite</translation>
    </message>
    <message>
        <source>file not available</source>
        <translation type="vanished">fichier indisponible</translation>
    </message>
</context>
<context>
    <name>trackwise::LinkDrop</name>
    <message>
        <source>Song Not Found</source>
        <translation type="vanished">Morceau introuvable</translation>
    </message>
    <message>
        <source>This doesn&apos;t seem to be an Apple Music song.</source>
        <translation type="vanished">Il ne semble pas s’agir d’un morceau Apple Music.</translation>
    </message>
    <message>
        <source>This doesn&apos;t seem to be a valid song.</source>
        <translation type="vanished">Il ne semble pas s’agir d’un morceau valide.</translation>
    </message>
    <message>
        <source>Failed to Look Up Song</source>
        <translation type="vanished">Échec de la recherche du morceau</translation>
    </message>
    <message>
        <source>You can try to find it via Select Song.</source>
        <translation type="vanished">Vous pouvez essayer de le trouver avec «&#xa0;Choisir un morceau&#xa0;».</translation>
    </message>
    <message>
        <source>Failed to Load Song</source>
        <translation type="vanished">Échec du chargement du morceau</translation>
    </message>
    <message>
        <source>Please check your internet connection and try again. Or you can find it via Select Song without an internet connection.</source>
        <translation type="vanished">Veuillez vérifier votre connexion à Internet et réessayer. Avec «&#xa0;Choisir un morceau&#xa0;», vous pouvez aussi le trouver sans connexion à Internet.</translation>
    </message>
    <message>
        <source>Couldn&apos;t Find Song</source>
        <translation type="vanished">Morceau introuvable</translation>
    </message>
    <message>
        <source>Songs do need to be added to your library to get their info. If this song isn&apos;t in your library, add it then try again.</source>
        <translation type="vanished">Les morceaux doivent être ajoutés à votre bibliothèque pour que leurs informations soient accessibles. Si ce morceau n’y figure pas, ajoutez-le, puis réessayez.</translation>
    </message>
</context>
<context>
    <name>trackwise::MediaPicker</name>
    <message>
        <source>Select Song</source>
        <translation type="vanished">Choisir un morceau</translation>
    </message>
    <message>
        <source>Artist or Album</source>
        <translation type="vanished">Artiste ou album</translation>
    </message>
</context>
<context>
    <name>trackwise::MoreMenu</name>
    <message>
        <source>Now Playing</source>
        <translation type="vanished">Lecture en cours</translation>
    </message>
    <message>
        <source>Clear Selected Song</source>
        <translation type="vanished">Désélectionner le morceau</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation type="vanished">Paramètres</translation>
    </message>
    <message>
        <source>Select Song from</source>
        <translation type="vanished">Choisir un morceau depuis</translation>
    </message>
</context>
<context>
    <name>trackwise::ScanStatus</name>
    <message>
        <source>Reading music: %1 of %2</source>
        <translation type="vanished">Analyse de la musique&#xa0;: %1 sur %2</translation>
    </message>
    <message>
        <source>Looking for music: %1 of %2 found</source>
        <translation type="vanished">Recherche de musique&#xa0;: %1 sur %2 trouvés</translation>
    </message>
</context>
<context>
    <name>trackwise::SettingsScreen</name>
    <message>
        <source>Music Access</source>
        <translation type="vanished">Accès à la musique</translation>
    </message>
    <message>
        <source>Extra Small</source>
        <translation type="vanished">Très petite</translation>
    </message>
    <message>
        <source>Small</source>
        <translation type="vanished">Petite</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation type="vanished">Moyenne</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation type="vanished">Standard</translation>
    </message>
    <message>
        <source>Large</source>
        <translation type="vanished">Grande</translation>
    </message>
    <message>
        <source>Extra Large</source>
        <translation type="vanished">Très grande</translation>
    </message>
    <message>
        <source>Largest of the Usual Sizes</source>
        <translation type="vanished">La plus grande des tailles courantes</translation>
    </message>
    <message>
        <source>Accessibility %1</source>
        <translation type="vanished">Accessibilité %1</translation>
    </message>
    <message>
        <source>Not available now</source>
        <translation type="vanished">Indisponible pour le moment</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation type="vanished">Paramètres</translation>
    </message>
</context>
<context>
    <name>trackwise::SongPickerSource</name>
    <message>
        <source>Select Song</source>
        <translation type="vanished">Choisir un morceau</translation>
    </message>
</context>
</TS>
