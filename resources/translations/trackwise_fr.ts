<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR">
<context>
    <name>AboutButtons</name>
    <message>
        <source>More Apps</source>
        <translation>Autres apps</translation>
    </message>
    <message>
        <source>Rate on App Store</source>
        <translation>Évaluer sur l’App Store</translation>
    </message>
    <message>
        <source>Privacy Policy</source>
        <translation>Confidentialité</translation>
    </message>
</context>
<context>
    <name>AboutIcon</name>
    <message>
        <source>App icon</source>
        <translation>Icône de l’app</translation>
    </message>
</context>
<context>
    <name>AboutView</name>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>ArtworkTile</name>
    <message>
        <source>Album artwork</source>
        <translation>Pochette de l’album</translation>
    </message>
    <message>
        <source>Album artwork, empty</source>
        <translation>Pochette de l’album, vide</translation>
    </message>
</context>
<context>
    <name>ArtworkView</name>
    <message>
        <source>Explicit</source>
        <translation>Contenu explicite</translation>
    </message>
</context>
<context>
    <name>ContextMenu</name>
    <message>
        <source>Menu</source>
        <translation>Menu</translation>
    </message>
</context>
<context>
    <name>CopyMenu</name>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
</context>
<context>
    <name>DetailAlerts</name>
    <message>
        <source>Open Music</source>
        <translation>Ouvrir Musique</translation>
    </message>
    <message>
        <source>Open Settings</source>
        <translation>Ouvrir les réglages</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Song Not Added to Library</source>
        <translation>Morceau absent de la bibliothèque</translation>
    </message>
    <message>
        <source>This song needs to be added to your Music Library to access its information. You can do this in the Music app.</source>
        <translation>Ce morceau doit être ajouté à votre bibliothèque musicale pour que ses informations soient accessibles. Vous pouvez l’ajouter dans l’application Musique.</translation>
    </message>
    <message>
        <source>No Music Access</source>
        <translation>Pas d’accès à la musique</translation>
    </message>
    <message>
        <source>Trackwise does not currently have access to your music library. Please turn on Media &amp; Apple Music access in the Settings app.</source>
        <translation>Trackwise n’a actuellement pas accès à votre bibliothèque musicale. Veuillez activer l’accès à «&#xa0;Médias et Apple Music&#xa0;» dans l’application Réglages.</translation>
    </message>
    <message>
        <source>Trackwise does not have access to your music library due to restrictions enabled on your device.</source>
        <translation>Trackwise n’a pas accès à votre bibliothèque musicale en raison de restrictions activées sur votre appareil.</translation>
    </message>
    <message>
        <source>No Song Playing</source>
        <translation>Aucun morceau en cours de lecture</translation>
    </message>
    <message>
        <source>Would you like to play something?</source>
        <translation>Voulez-vous écouter quelque chose&#x202f;?</translation>
    </message>
    <message>
        <source>No Microphone Access</source>
        <translation>Pas d’accès au microphone</translation>
    </message>
    <message>
        <source>Trackwise does not currently have access to your microphone. Please turn on Microphone access in the Settings app.</source>
        <translation>Trackwise n’a actuellement pas accès à votre microphone. Veuillez activer l’accès au microphone dans l’application Réglages.</translation>
    </message>
</context>
<context>
    <name>DetailView</name>
    <message>
        <source>Select Song</source>
        <translation>Choisir un morceau</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Plus</translation>
    </message>
    <message>
        <source>No Song Selected</source>
        <translation>Aucun morceau choisi</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
</context>
<context>
    <name>EmptyStateView</name>
    <message>
        <source>Choose Folder…</source>
        <translation>Choisir un dossier…</translation>
    </message>
</context>
<context>
    <name>FolderList</name>
    <message>
        <source>Remove %1</source>
        <translation>Retirer %1</translation>
    </message>
</context>
<context>
    <name>HelpView</name>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Terminé</translation>
    </message>
    <message>
        <source>App</source>
        <translation>App</translation>
    </message>
    <message>
        <source>Select any song from your music library in the Trackwise app to view its information. This works with songs you&apos;ve added to your library via Apple Music as well as purchased, matched, uploaded, and synced songs. Note that songs on Apple Music that haven&apos;t been added to your library cannot be accessed.</source>
        <translation>Choisissez n’importe quel morceau de votre bibliothèque musicale dans l’app Trackwise pour en afficher les informations. Cela fonctionne avec les morceaux ajoutés à votre bibliothèque via Apple Music comme avec ceux que vous avez achetés, mis en correspondance, téléversés ou synchronisés. Notez que les morceaux d’Apple Music qui n’ont pas été ajoutés à votre bibliothèque ne sont pas accessibles.</translation>
    </message>
    <message>
        <source>Share Sheet Action</source>
        <translation>Action du menu de partage</translation>
    </message>
    <message>
        <source>Share a song in the Music app to view its information right from the share sheet. I recommend adding Get Trackwise to your favorites via Edit Actions so it&apos;s easily accessible in the top section. Note that the Music app does not have a share button for songs not available on Apple Music.</source>
        <translation>Partagez un morceau dans l’app Musique pour en afficher les informations directement dans le menu de partage. Je vous recommande d’ajouter «&#xa0;Get Trackwise&#xa0;» à vos favoris via «&#xa0;Modifier les actions&#xa0;», afin d’y accéder facilement dans la partie supérieure. Notez que l’app Musique n’a pas de bouton de partage pour les morceaux qui ne sont pas disponibles sur Apple Music.</translation>
    </message>
    <message>
        <source>The action extension will try to look up the song in your library. This may require an internet connection and it&apos;s possible it may not be able to find the right song, for example, if you&apos;ve renamed that song. If an error occurs, you can use the app to view its information even without an internet connection.</source>
        <translation>L’extension tente de retrouver le morceau dans votre bibliothèque. Cela peut nécessiter une connexion à Internet, et il se peut qu’elle ne trouve pas le bon morceau, par exemple si vous l’avez renommé. En cas d’erreur, vous pouvez utiliser l’app pour en afficher les informations, même sans connexion à Internet.</translation>
    </message>
    <message>
        <source>Contact Support</source>
        <translation>Contacter l’assistance</translation>
    </message>
    <message>
        <source>Reach out if you have any questions or feedback!</source>
        <translation>N’hésitez pas à m’écrire si vous avez des questions ou des remarques&#x202f;!</translation>
    </message>
    <message>
        <source>Email the Developer</source>
        <translation>Écrire au développeur</translation>
    </message>
</context>
<context>
    <name>InformationHeader</name>
    <message>
        <source>Information</source>
        <translation>Informations</translation>
    </message>
    <message>
        <source>Show Less</source>
        <translation>Afficher moins</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation>Afficher plus</translation>
    </message>
</context>
<context>
    <name>LibraryAccessView</name>
    <message>
        <source>“Trackwise” would like to access your music library</source>
        <translation>«&#xa0;Trackwise&#xa0;» souhaite accéder à votre bibliothèque musicale</translation>
    </message>
    <message>
        <source>It shows what your library knows about a song. It reads the music in these folders and never changes it.</source>
        <translation>L’application affiche ce que votre bibliothèque sait d’un morceau. Elle lit les fichiers de musique de ces dossiers sans jamais les modifier.</translation>
    </message>
    <message>
        <source>Choose Another Folder…</source>
        <translation>Choisir un autre dossier…</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Don&apos;t Allow</source>
        <translation>Ne pas autoriser</translation>
    </message>
</context>
<context>
    <name>LyricsView</name>
    <message>
        <source>Lyrics</source>
        <translation>Paroles</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Trackwise</source>
        <translation>Trackwise</translation>
    </message>
</context>
<context>
    <name>MenuBarView</name>
    <message>
        <source>Menu Bar</source>
        <translation>Barre de menus</translation>
    </message>
</context>
<context>
    <name>MicrophoneSection</name>
    <message>
        <source>Microphone</source>
        <translation>Microphone</translation>
    </message>
    <message>
        <source>Microphone access</source>
        <translation>Accès au microphone</translation>
    </message>
    <message>
        <source>For recognizing the music around you. What is heard stays on this device.</source>
        <translation>Pour reconnaître la musique autour de vous. Ce qui est entendu reste sur cet appareil.</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>Entrée</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Niveau</translation>
    </message>
</context>
<context>
    <name>MusicAppLink</name>
    <message>
        <source>Open Music app</source>
        <translation>Ouvrir l’application Musique</translation>
    </message>
</context>
<context>
    <name>PickerPages</name>
    <message>
        <source>Search Results</source>
        <translation>Résultats de la recherche</translation>
    </message>
</context>
<context>
    <name>PickerTabs</name>
    <message>
        <source>Songs</source>
        <translation>Morceaux</translation>
    </message>
    <message>
        <source>Artists</source>
        <translation>Artistes</translation>
    </message>
    <message>
        <source>Albums</source>
        <translation>Albums</translation>
    </message>
    <message>
        <source>Recently Added</source>
        <translation>Ajouts récents</translation>
    </message>
    <message>
        <source>Lists</source>
        <translation>Listes</translation>
    </message>
</context>
<context>
    <name>PickerTitleBar</name>
    <message>
        <source>Back</source>
        <translation>Retour</translation>
    </message>
    <message>
        <source>Scan Again</source>
        <translation>Relancer l’analyse</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>PlaybackRow</name>
    <message>
        <source>NOW PLAYING</source>
        <translation>LECTURE EN COURS</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Lecture</translation>
    </message>
</context>
<context>
    <name>PushedView</name>
    <message>
        <source>Back</source>
        <translation>Retour</translation>
    </message>
</context>
<context>
    <name>QGuiApplication</name>
    <message>
        <source>QT_LAYOUT_DIRECTION</source>
        <translation>LTR</translation>
    </message>
</context>
<context>
    <name>Recognition</name>
    <message>
        <source>Listening</source>
        <translation>Écoute en cours</translation>
    </message>
    <message>
        <source>Microphone already in use</source>
        <translation>Microphone déjà utilisé</translation>
    </message>
    <message>
        <source>Song Identified</source>
        <translation>Morceau reconnu</translation>
    </message>
    <message>
        <source>Song identified</source>
        <translation>Morceau reconnu</translation>
    </message>
    <message>
        <source>Song Not Found</source>
        <translation>Morceau introuvable</translation>
    </message>
    <message>
        <source>Couldn&apos;t find in your library</source>
        <translation>Absent de votre bibliothèque</translation>
    </message>
    <message>
        <source>Song not found, couldn&apos;t find in your library</source>
        <translation>Morceau introuvable, il est absent de votre bibliothèque</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
    </message>
    <message>
        <source>Error occurred, %1</source>
        <translation>Une erreur s’est produite, %1</translation>
    </message>
    <message>
        <source>Music Recognition</source>
        <translation>Reconnaissance musicale</translation>
    </message>
    <message>
        <source>Listening…</source>
        <translation>Écoute en cours…</translation>
    </message>
    <message>
        <source>No Result</source>
        <translation>Aucun résultat</translation>
    </message>
    <message>
        <source>Couldn&apos;t identify song</source>
        <translation>Morceau non reconnu</translation>
    </message>
    <message>
        <source>No result, couldn&apos;t identify song</source>
        <translation>Aucun résultat, morceau non reconnu</translation>
    </message>
    <message>
        <source>Song identified, %1 by %2</source>
        <translation>Morceau reconnu, %1 de %2</translation>
    </message>
    <message>
        <source>Not Found in Your Library</source>
        <translation>Absent de votre bibliothèque</translation>
    </message>
    <message>
        <source>No sound is coming in</source>
        <translation>Aucun son n’est reçu</translation>
    </message>
</context>
<context>
    <name>RecognitionSection</name>
    <message>
        <source>Music Recognition</source>
        <translation>Reconnaissance musicale</translation>
    </message>
    <message>
        <source>Get to know songs by ear</source>
        <translation>Apprendre à reconnaître les morceaux</translation>
    </message>
    <message>
        <source>Begin Anew</source>
        <translation>Recommencer</translation>
    </message>
    <message>
        <source>Forget All Songs</source>
        <translation>Oublier tous les morceaux</translation>
    </message>
</context>
<context>
    <name>ReviewCard</name>
    <message>
        <source>Do you like Trackwise?</source>
        <translation>Aimez-vous Trackwise&#x202f;?</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>Pas maintenant</translation>
    </message>
    <message>
        <source>Write a Review</source>
        <translation>Rédiger un avis</translation>
    </message>
</context>
<context>
    <name>SearchField</name>
    <message>
        <source>Search Songs</source>
        <translation>Rechercher</translation>
    </message>
    <message>
        <source>Clear Search</source>
        <translation>Effacer la recherche</translation>
    </message>
</context>
<context>
    <name>SectionIndex</name>
    <message>
        <source>Letters</source>
        <translation>Lettres</translation>
    </message>
</context>
<context>
    <name>SettingsView</name>
    <message>
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatique</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Clair</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Sombre</translation>
    </message>
    <message>
        <source>Reduced</source>
        <translation>Réduites</translation>
    </message>
    <message>
        <source>Full</source>
        <translation>Complètes</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Terminé</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musique</translation>
    </message>
    <message>
        <source>Music access</source>
        <translation>Accès à la musique</translation>
    </message>
    <message>
        <source>The system does not let Trackwise read your music folders.</source>
        <translation>Le système n’autorise pas Trackwise à lire vos dossiers de musique.</translation>
    </message>
    <message>
        <source>Trackwise reads your music and never changes it.</source>
        <translation>Trackwise lit vos fichiers de musique sans jamais les modifier.</translation>
    </message>
    <message>
        <source>Add Music Folder…</source>
        <translation>Ajouter un dossier de musique…</translation>
    </message>
    <message>
        <source>Scan Again</source>
        <translation>Relancer l’analyse</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Apparence</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Thème</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation>Animations</translation>
    </message>
    <message>
        <source>Reduced motion fades where it would slide.</source>
        <translation>Les animations réduites remplacent les glissements par des fondus.</translation>
    </message>
    <message>
        <source>Text size of the desktop</source>
        <translation>Taille du texte du bureau</translation>
    </message>
    <message>
        <source>Players to Ignore</source>
        <translation>Lecteurs à ignorer</translation>
    </message>
    <message>
        <source>Other players are listed here while they run.</source>
        <translation>Les autres lecteurs apparaissent ici tant qu’ils sont ouverts.</translation>
    </message>
    <message>
        <source>Ignore %1</source>
        <translation>Ignorer %1</translation>
    </message>
    <message>
        <source>Show menu bar</source>
        <translation>Afficher la barre de menus</translation>
    </message>
    <message>
        <source>Otherwise Alt or F10 shows it.</source>
        <translation>Sinon, Alt ou F10 l’affiche.</translation>
    </message>
</context>
<context>
    <name>SongPicker</name>
    <message>
        <source>No Results</source>
        <translation>Aucun résultat</translation>
    </message>
    <message>
        <source>No song matches “%1”.</source>
        <translation>Aucun morceau ne correspond à «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>Looking for Music</source>
        <translation>Recherche de musique</translation>
    </message>
    <message>
        <source>Songs appear here as soon as they have been read.</source>
        <translation>Les morceaux apparaissent ici dès qu’ils ont été analysés.</translation>
    </message>
    <message>
        <source>No Music Found</source>
        <translation>Aucune musique trouvée</translation>
    </message>
    <message>
        <source>Add songs to your music folder, or choose the folder in which your music is.</source>
        <translation>Ajoutez des morceaux à votre dossier de musique ou choisissez le dossier où se trouve votre musique.</translation>
    </message>
    <message>
        <source>Unknown Artist</source>
        <translation>Artiste inconnu</translation>
    </message>
    <message>
        <source>Unknown Title</source>
        <translation>Titre inconnu</translation>
    </message>
    <message>
        <source>Unknown Album</source>
        <translation>Album inconnu</translation>
    </message>
    <message numerus="yes">
        <source>%Ln song</source>
        <translation>
            <numerusform>%Ln morceau</numerusform>
            <numerusform>%Ln morceaux</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs</source>
        <translation>
            <numerusform>%Ln morceau</numerusform>
            <numerusform>%Ln morceaux</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SongPickerView</name>
    <message>
        <source>Stop Reading Music</source>
        <translation>Arrêter l’analyse de la musique</translation>
    </message>
</context>
<context>
    <name>TextSizeSlider</name>
    <message>
        <source>Text size</source>
        <translation>Taille du texte</translation>
    </message>
</context>
<context>
    <name>trackwise::AboutView</name>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
</context>
<context>
    <name>trackwise::AddressOpening</name>
    <message>
        <source>Song Not Found</source>
        <translation>Morceau introuvable</translation>
    </message>
    <message>
        <source>There is no song “%1” in your music library. Music folders are chosen in the settings.</source>
        <translation>Votre bibliothèque musicale ne contient aucun morceau «&#xa0;%1&#xa0;». Les dossiers de musique se choisissent dans les réglages.</translation>
    </message>
    <message>
        <source>There is no file “%1”.</source>
        <translation>Le fichier «&#xa0;%1&#xa0;» n’existe pas.</translation>
    </message>
</context>
<context>
    <name>trackwise::CopyableRow</name>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
</context>
<context>
    <name>trackwise::DetailViewController</name>
    <message>
        <source>Lyrics</source>
        <translation>Paroles</translation>
    </message>
</context>
<context>
    <name>trackwise::IndexStatus</name>
    <message>
        <source>%1 of %2 songs can be recognized (%3)</source>
        <translation>%1 morceaux sur %2 peuvent être reconnus (%3)</translation>
    </message>
    <message>
        <source>Listening to music: %1 left</source>
        <translation>Écoute de la musique : %1 restants</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>En pause</translation>
    </message>
    <message>
        <source>Paused: saving power</source>
        <translation>En pause : économie d’énergie</translation>
    </message>
    <message>
        <source>Not possible at the moment</source>
        <translation>Impossible pour le moment</translation>
    </message>
    <message>
        <source>What was not recognized just now may be among the songs that are left.</source>
        <translation>Ce qui vient de ne pas être reconnu fait peut-être partie des morceaux restants.</translation>
    </message>
</context>
<context>
    <name>trackwise::InputSettings</name>
    <message>
        <source>Default input</source>
        <translation>Entrée par défaut</translation>
    </message>
    <message>
        <source>No microphone found</source>
        <translation>Aucun microphone trouvé</translation>
    </message>
    <message>
        <source>Not connected; the default input is used</source>
        <translation>Non connectée ; l’entrée par défaut est utilisée</translation>
    </message>
    <message>
        <source>This computer&apos;s sound</source>
        <translation>Son de cet ordinateur</translation>
    </message>
    <message>
        <source>Whatever it plays, also for headphones</source>
        <translation>Tout ce qu’il lit, même au casque</translation>
    </message>
    <message>
        <source>Not available now</source>
        <translation>Indisponible pour le moment</translation>
    </message>
    <message>
        <source>Paused; choose an input to go on</source>
        <translation>En pause ; choisissez une entrée pour continuer</translation>
    </message>
    <message>
        <source>No sound is coming in</source>
        <translation>Aucun son n’est reçu</translation>
    </message>
</context>
<context>
    <name>trackwise::KeyCommands</name>
    <message>
        <source>New Window</source>
        <translation>Nouvelle fenêtre</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Select Song</source>
        <translation>Choisir un morceau</translation>
    </message>
    <message>
        <source>Select Song from Now Playing</source>
        <translation>Choisir le morceau en cours de lecture</translation>
    </message>
    <message>
        <source>Clear Selected Song</source>
        <translation>Annuler le choix</translation>
    </message>
    <message>
        <source>Paste Link</source>
        <translation>Coller le lien</translation>
    </message>
    <message>
        <source>Close Window</source>
        <translation>Fermer la fenêtre</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>Select Song from Music Recognition</source>
        <translation>Choisir un morceau par reconnaissance musicale</translation>
    </message>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
</context>
<context>
    <name>trackwise::Launch</name>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>A new library can be made from your music folders. The old file is kept under another name; what only it knows, such as play counts, starts anew.</source>
        <translation>Une nouvelle bibliothèque peut être créée à partir de vos dossiers de musique. L’ancien fichier est conservé sous un autre nom&#x202f;; ce que lui seul contient, comme le nombre d’écoutes, repart de zéro.</translation>
    </message>
    <message>
        <source>New Library</source>
        <translation>Nouvelle bibliothèque</translation>
    </message>
    <message>
        <source>Music Library Unreadable</source>
        <translation>Bibliothèque musicale illisible</translation>
    </message>
    <message>
        <source>Show Demo</source>
        <translation>Afficher la démo</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>Pas maintenant</translation>
    </message>
    <message>
        <source>No Music Found</source>
        <translation>Aucune musique trouvée</translation>
    </message>
    <message>
        <source>There are no songs in your music folder. Would you like to look around with a dozen demo songs?</source>
        <translation>Votre dossier de musique ne contient aucun morceau. Voulez-vous découvrir Trackwise avec une douzaine de morceaux de démonstration&#x202f;?</translation>
    </message>
    <message>
        <source>Don&apos;t Allow</source>
        <translation>Ne pas autoriser</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>“Trackwise” would like to access the microphone</source>
        <translation>«&#xa0;Trackwise&#xa0;» souhaite accéder au microphone</translation>
    </message>
    <message>
        <source>It listens only while you look for a song by its sound. What is heard stays on this device and is not kept.</source>
        <translation>L’application n’écoute que pendant que vous cherchez un morceau d’après le son. Ce qu’elle entend reste sur cet appareil et n’est pas conservé.</translation>
    </message>
</context>
<context>
    <name>trackwise::LibraryListModel</name>
    <message>
        <source>explicit</source>
        <translation>contenu explicite</translation>
    </message>
    <message>
        <source>file not available</source>
        <translation>fichier indisponible</translation>
    </message>
</context>
<context>
    <name>trackwise::LibraryRecognition</name>
    <message>
        <source>Microphone already in use</source>
        <translation>Microphone déjà utilisé</translation>
    </message>
    <message>
        <source>No microphone found</source>
        <translation>Aucun microphone trouvé</translation>
    </message>
    <message>
        <source>No sound on this device</source>
        <translation>Pas de son sur cet appareil</translation>
    </message>
    <message>
        <source>Couldn&apos;t read known songs</source>
        <translation>Morceaux connus illisibles</translation>
    </message>
</context>
<context>
    <name>trackwise::LinkDrop</name>
    <message>
        <source>Song Not Found</source>
        <translation>Morceau introuvable</translation>
    </message>
    <message>
        <source>This doesn&apos;t seem to be an Apple Music song.</source>
        <translation>Il ne semble pas s’agir d’un morceau Apple Music.</translation>
    </message>
    <message>
        <source>This doesn&apos;t seem to be a valid song.</source>
        <translation>Il ne semble pas s’agir d’un morceau valide.</translation>
    </message>
    <message>
        <source>Failed to Look Up Song</source>
        <translation>Échec de la recherche du morceau</translation>
    </message>
    <message>
        <source>You can try to find it via Select Song.</source>
        <translation>Vous pouvez essayer de le trouver avec «&#xa0;Choisir un morceau&#xa0;».</translation>
    </message>
    <message>
        <source>Failed to Load Song</source>
        <translation>Échec du chargement du morceau</translation>
    </message>
    <message>
        <source>Please check your internet connection and try again. Or you can find it via Select Song without an internet connection.</source>
        <translation>Veuillez vérifier votre connexion à Internet et réessayer. Avec «&#xa0;Choisir un morceau&#xa0;», vous pouvez aussi le trouver sans connexion à Internet.</translation>
    </message>
    <message>
        <source>Couldn&apos;t Find Song</source>
        <translation>Morceau introuvable</translation>
    </message>
    <message>
        <source>Songs do need to be added to your library to get their info. If this song isn&apos;t in your library, add it then try again.</source>
        <translation>Les morceaux doivent être ajoutés à votre bibliothèque pour que leurs informations soient accessibles. Si ce morceau n’y figure pas, ajoutez-le, puis réessayez.</translation>
    </message>
</context>
<context>
    <name>trackwise::ListeningStatus</name>
    <message>
        <source>Listening to music: %1 of %2</source>
        <translation>Écoute de la musique&#xa0;: %1 sur %2</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>En pause</translation>
    </message>
    <message>
        <source>Paused: saving power</source>
        <translation>En pause : économie d’énergie</translation>
    </message>
    <message>
        <source>So that it can be recognized</source>
        <translation>Pour pouvoir la reconnaître</translation>
    </message>
    <message>
        <source>Go On Listening to Music</source>
        <translation>Reprendre l’écoute de la musique</translation>
    </message>
    <message>
        <source>Pause Listening to Music</source>
        <translation>Suspendre l’écoute de la musique</translation>
    </message>
</context>
<context>
    <name>trackwise::MediaPicker</name>
    <message>
        <source>Select Song</source>
        <translation>Choisir un morceau</translation>
    </message>
    <message>
        <source>Artist or Album</source>
        <translation>Artiste ou album</translation>
    </message>
</context>
<context>
    <name>trackwise::MoreMenu</name>
    <message>
        <source>Now Playing</source>
        <translation>Lecture en cours</translation>
    </message>
    <message>
        <source>Clear Selected Song</source>
        <translation>Annuler le choix</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
    <message>
        <source>Select Song from</source>
        <translation>Choisir un morceau depuis</translation>
    </message>
    <message>
        <source>Listening…</source>
        <translation>Écoute en cours…</translation>
    </message>
    <message>
        <source>Music Recognition</source>
        <translation>Reconnaissance musicale</translation>
    </message>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
</context>
<context>
    <name>trackwise::ScanStatus</name>
    <message>
        <source>Reading music: %1 of %2</source>
        <translation>Analyse de la musique&#xa0;: %1 sur %2</translation>
    </message>
    <message>
        <source>Looking for music: %1 of %2 found</source>
        <translation>Recherche de musique&#xa0;: %1 sur %2 trouvés</translation>
    </message>
</context>
<context>
    <name>trackwise::SettingsScreen</name>
    <message>
        <source>Music Access</source>
        <translation>Accès à la musique</translation>
    </message>
    <message>
        <source>Extra Small</source>
        <translation>Très petite</translation>
    </message>
    <message>
        <source>Small</source>
        <translation>Petite</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>Moyenne</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Large</source>
        <translation>Grande</translation>
    </message>
    <message>
        <source>Extra Large</source>
        <translation>Très grande</translation>
    </message>
    <message>
        <source>Largest of the Usual Sizes</source>
        <translation>La plus grande des tailles courantes</translation>
    </message>
    <message>
        <source>Accessibility %1</source>
        <translation>Accessibilité %1</translation>
    </message>
    <message>
        <source>Not available now</source>
        <translation>Indisponible pour le moment</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
</context>
<context>
    <name>trackwise::SongPickerSource</name>
    <message>
        <source>Select Song</source>
        <translation>Choisir un morceau</translation>
    </message>
</context>
</TS>
