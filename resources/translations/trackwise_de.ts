<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>AboutButtons</name>
    <message>
        <source>More Apps</source>
        <translation>Weitere Apps</translation>
    </message>
    <message>
        <source>Rate on App Store</source>
        <translation>Im App Store bewerten</translation>
    </message>
    <message>
        <source>Privacy Policy</source>
        <translation>Datenschutz</translation>
    </message>
</context>
<context>
    <name>AboutIcon</name>
    <message>
        <source>App icon</source>
        <translation>App-Symbol</translation>
    </message>
</context>
<context>
    <name>AboutView</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>ArtworkTile</name>
    <message>
        <source>Album artwork</source>
        <translation>Albumcover</translation>
    </message>
    <message>
        <source>Album artwork, empty</source>
        <translation>Albumcover, leer</translation>
    </message>
</context>
<context>
    <name>ArtworkView</name>
    <message>
        <source>Explicit</source>
        <translation>Explizit</translation>
    </message>
</context>
<context>
    <name>ContextMenu</name>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
</context>
<context>
    <name>CopyMenu</name>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
</context>
<context>
    <name>DetailAlerts</name>
    <message>
        <source>Open Music</source>
        <translation>Musik öffnen</translation>
    </message>
    <message>
        <source>Open Settings</source>
        <translation>Einstellungen öffnen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Song Not Added to Library</source>
        <translation>Titel nicht in der Mediathek</translation>
    </message>
    <message>
        <source>This song needs to be added to your Music Library to access its information. You can do this in the Music app.</source>
        <translation>Füge diesen Titel zu deiner Musikmediathek hinzu, um seine Informationen zu sehen. Das geht in der Musik-App.</translation>
    </message>
    <message>
        <source>No Music Access</source>
        <translation>Kein Zugriff auf Musik</translation>
    </message>
    <message>
        <source>Trackwise does not currently have access to your music library. Please turn on Media &amp; Apple Music access in the Settings app.</source>
        <translation>Trackwise hat derzeit keinen Zugriff auf deine Musikmediathek. Bitte schalte den Zugriff auf Medien &amp; Apple Music in den Einstellungen ein.</translation>
    </message>
    <message>
        <source>Trackwise does not have access to your music library due to restrictions enabled on your device.</source>
        <translation>Trackwise hat wegen Einschränkungen auf deinem Gerät keinen Zugriff auf deine Musikmediathek.</translation>
    </message>
    <message>
        <source>No Song Playing</source>
        <translation>Es läuft kein Titel</translation>
    </message>
    <message>
        <source>Would you like to play something?</source>
        <translation>Möchtest du etwas abspielen?</translation>
    </message>
    <message>
        <source>No Microphone Access</source>
        <translation>Kein Zugriff auf das Mikrofon</translation>
    </message>
    <message>
        <source>Trackwise does not currently have access to your microphone. Please turn on Microphone access in the Settings app.</source>
        <translation>Trackwise hat derzeit keinen Zugriff auf dein Mikrofon. Bitte schalte den Zugriff auf das Mikrofon in den Einstellungen ein.</translation>
    </message>
</context>
<context>
    <name>DetailView</name>
    <message>
        <source>Select Song</source>
        <translation>Titel auswählen</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Mehr</translation>
    </message>
    <message>
        <source>No Song Selected</source>
        <translation>Kein Titel ausgewählt</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
</context>
<context>
    <name>EmptyStateView</name>
    <message>
        <source>Choose Folder…</source>
        <translation>Ordner auswählen …</translation>
    </message>
</context>
<context>
    <name>FolderList</name>
    <message>
        <source>Remove %1</source>
        <translation>%1 entfernen</translation>
    </message>
</context>
<context>
    <name>HelpView</name>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>App</source>
        <translation>App</translation>
    </message>
    <message>
        <source>Select any song from your music library in the Trackwise app to view its information. This works with songs you&apos;ve added to your library via Apple Music as well as purchased, matched, uploaded, and synced songs. Note that songs on Apple Music that haven&apos;t been added to your library cannot be accessed.</source>
        <translation>Wähle in der Trackwise-App einen beliebigen Titel aus deiner Musikmediathek, um seine Informationen zu sehen. Das geht mit Titeln, die du über Apple Music zu deiner Mediathek hinzugefügt hast, ebenso wie mit gekauften, abgeglichenen, hochgeladenen und synchronisierten Titeln. Titel von Apple Music, die nicht zu deiner Mediathek hinzugefügt wurden, sind nicht zugänglich.</translation>
    </message>
    <message>
        <source>Share Sheet Action</source>
        <translation>Aktion im Teilen-Menü</translation>
    </message>
    <message>
        <source>Share a song in the Music app to view its information right from the share sheet. I recommend adding Get Trackwise to your favorites via Edit Actions so it&apos;s easily accessible in the top section. Note that the Music app does not have a share button for songs not available on Apple Music.</source>
        <translation>Teile einen Titel in der Musik-App, um seine Informationen direkt im Teilen-Menü zu sehen. Ich empfehle, „Get Trackwise“ über „Aktionen bearbeiten“ zu deinen Favoriten hinzuzufügen, damit es im oberen Bereich schnell erreichbar ist. Bei Titeln, die es nicht auf Apple Music gibt, hat die Musik-App keine Taste zum Teilen.</translation>
    </message>
    <message>
        <source>The action extension will try to look up the song in your library. This may require an internet connection and it&apos;s possible it may not be able to find the right song, for example, if you&apos;ve renamed that song. If an error occurs, you can use the app to view its information even without an internet connection.</source>
        <translation>Die Erweiterung versucht, den Titel in deiner Mediathek zu finden. Dafür kann eine Internetverbindung nötig sein, und es kann vorkommen, dass der richtige Titel nicht gefunden wird, zum Beispiel wenn du ihn umbenannt hast. Falls ein Fehler auftritt, kannst du seine Informationen in der App ansehen, auch ohne Internetverbindung.</translation>
    </message>
    <message>
        <source>Contact Support</source>
        <translation>Support kontaktieren</translation>
    </message>
    <message>
        <source>Reach out if you have any questions or feedback!</source>
        <translation>Melde dich, wenn du Fragen oder Anregungen hast!</translation>
    </message>
    <message>
        <source>Email the Developer</source>
        <translation>E-Mail an den Entwickler</translation>
    </message>
</context>
<context>
    <name>InformationHeader</name>
    <message>
        <source>Information</source>
        <translation>Informationen</translation>
    </message>
    <message>
        <source>Show Less</source>
        <translation>Weniger anzeigen</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation>Mehr anzeigen</translation>
    </message>
</context>
<context>
    <name>LibraryAccessView</name>
    <message>
        <source>“Trackwise” would like to access your music library</source>
        <translation>„Trackwise“ möchte auf deine Musikmediathek zugreifen</translation>
    </message>
    <message>
        <source>It shows what your library knows about a song. It reads the music in these folders and never changes it.</source>
        <translation>Es zeigt, was deine Mediathek über einen Titel weiß. Es liest die Musik in diesen Ordnern und ändert sie nie.</translation>
    </message>
    <message>
        <source>Choose Another Folder…</source>
        <translation>Anderen Ordner auswählen …</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Don&apos;t Allow</source>
        <translation>Nicht erlauben</translation>
    </message>
</context>
<context>
    <name>LyricsView</name>
    <message>
        <source>Lyrics</source>
        <translation>Liedtext</translation>
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
        <translation>Menüleiste</translation>
    </message>
</context>
<context>
    <name>MicrophoneSection</name>
    <message>
        <source>Microphone</source>
        <translation>Mikrofon</translation>
    </message>
    <message>
        <source>Microphone access</source>
        <translation>Zugriff auf das Mikrofon</translation>
    </message>
    <message>
        <source>For recognizing the music around you. What is heard stays on this device.</source>
        <translation>Zum Erkennen der Musik um dich herum. Was gehört wird, bleibt auf diesem Gerät.</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>Eingang</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Pegel</translation>
    </message>
</context>
<context>
    <name>MusicAppLink</name>
    <message>
        <source>Open Music app</source>
        <translation>Musik-App öffnen</translation>
    </message>
</context>
<context>
    <name>PickerPages</name>
    <message>
        <source>Search Results</source>
        <translation>Suchergebnisse</translation>
    </message>
</context>
<context>
    <name>PickerTabs</name>
    <message>
        <source>Lists</source>
        <translation>Listen</translation>
    </message>
    <message>
        <source>Songs</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Artists</source>
        <translation>Interpreten</translation>
    </message>
    <message>
        <source>Albums</source>
        <translation>Alben</translation>
    </message>
    <message>
        <source>Recently Added</source>
        <translation>Zuletzt hinzugefügt</translation>
    </message>
</context>
<context>
    <name>PickerTitleBar</name>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Scan Again</source>
        <translation>Erneut einlesen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>PlaybackRow</name>
    <message>
        <source>NOW PLAYING</source>
        <translation>LÄUFT GERADE</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Wiedergabe</translation>
    </message>
</context>
<context>
    <name>PushedView</name>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
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
        <translation>Hört zu</translation>
    </message>
    <message>
        <source>Microphone already in use</source>
        <translation>Mikrofon wird bereits verwendet</translation>
    </message>
    <message>
        <source>Song Identified</source>
        <translation>Titel erkannt</translation>
    </message>
    <message>
        <source>Song identified</source>
        <translation>Titel erkannt</translation>
    </message>
    <message>
        <source>Song Not Found</source>
        <translation>Titel nicht gefunden</translation>
    </message>
    <message>
        <source>Couldn&apos;t find in your library</source>
        <translation>Nicht in deiner Mediathek gefunden</translation>
    </message>
    <message>
        <source>Song not found, couldn&apos;t find in your library</source>
        <translation>Titel nicht gefunden, er ist nicht in deiner Mediathek</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Error occurred, %1</source>
        <translation>Ein Fehler ist aufgetreten, %1</translation>
    </message>
    <message>
        <source>Music Recognition</source>
        <translation>Musikerkennung</translation>
    </message>
    <message>
        <source>Listening…</source>
        <translation>Hört zu …</translation>
    </message>
    <message>
        <source>No Result</source>
        <translation>Kein Ergebnis</translation>
    </message>
    <message>
        <source>Couldn&apos;t identify song</source>
        <translation>Titel nicht erkannt</translation>
    </message>
    <message>
        <source>No result, couldn&apos;t identify song</source>
        <translation>Kein Ergebnis, Titel nicht erkannt</translation>
    </message>
    <message>
        <source>Song identified, %1 by %2</source>
        <translation>Titel erkannt, %1 von %2</translation>
    </message>
    <message>
        <source>Not Found in Your Library</source>
        <translation>Nicht in deiner Mediathek</translation>
    </message>
    <message>
        <source>No sound is coming in</source>
        <translation>Es kommt kein Ton an</translation>
    </message>
</context>
<context>
    <name>RecognitionSection</name>
    <message>
        <source>Music Recognition</source>
        <translation>Musikerkennung</translation>
    </message>
    <message>
        <source>Get to know songs by ear</source>
        <translation>Titel nach Gehör kennenlernen</translation>
    </message>
    <message>
        <source>Begin Anew</source>
        <translation>Neu beginnen</translation>
    </message>
    <message>
        <source>Forget All Songs</source>
        <translation>Alle Titel vergessen</translation>
    </message>
</context>
<context>
    <name>ReviewCard</name>
    <message>
        <source>Do you like Trackwise?</source>
        <translation>Gefällt dir Trackwise?</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>Nicht jetzt</translation>
    </message>
    <message>
        <source>Write a Review</source>
        <translation>Rezension schreiben</translation>
    </message>
</context>
<context>
    <name>SearchField</name>
    <message>
        <source>Search Songs</source>
        <translation>Titel suchen</translation>
    </message>
    <message>
        <source>Clear Search</source>
        <translation>Suche löschen</translation>
    </message>
</context>
<context>
    <name>SectionIndex</name>
    <message>
        <source>Letters</source>
        <translation>Buchstaben</translation>
    </message>
</context>
<context>
    <name>SettingsView</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>Reduced</source>
        <translation>Reduziert</translation>
    </message>
    <message>
        <source>Full</source>
        <translation>Voll</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musik</translation>
    </message>
    <message>
        <source>Music access</source>
        <translation>Zugriff auf Musik</translation>
    </message>
    <message>
        <source>The system does not let Trackwise read your music folders.</source>
        <translation>Das System lässt Trackwise deine Musikordner nicht lesen.</translation>
    </message>
    <message>
        <source>Trackwise reads your music and never changes it.</source>
        <translation>Trackwise liest deine Musik und ändert sie nie.</translation>
    </message>
    <message>
        <source>Add Music Folder…</source>
        <translation>Musikordner hinzufügen …</translation>
    </message>
    <message>
        <source>Scan Again</source>
        <translation>Erneut einlesen</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Darstellung</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Farbschema</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation>Bewegung</translation>
    </message>
    <message>
        <source>Reduced motion fades where it would slide.</source>
        <translation>Reduzierte Bewegung blendet, statt zu gleiten.</translation>
    </message>
    <message>
        <source>Text size of the desktop</source>
        <translation>Textgröße des Desktops</translation>
    </message>
    <message>
        <source>Players to Ignore</source>
        <translation>Zu ignorierende Player</translation>
    </message>
    <message>
        <source>Other players are listed here while they run.</source>
        <translation>Andere Player werden hier aufgeführt, während sie laufen.</translation>
    </message>
    <message>
        <source>Ignore %1</source>
        <translation>%1 ignorieren</translation>
    </message>
    <message>
        <source>Show menu bar</source>
        <translation>Menüleiste anzeigen</translation>
    </message>
    <message>
        <source>Otherwise Alt or F10 shows it.</source>
        <translation>Sonst zeigen Alt oder F10 sie an.</translation>
    </message>
</context>
<context>
    <name>SongPicker</name>
    <message>
        <source>No Results</source>
        <translation>Keine Ergebnisse</translation>
    </message>
    <message>
        <source>No song matches “%1”.</source>
        <translation>Kein Titel passt zu „%1“.</translation>
    </message>
    <message>
        <source>Looking for Music</source>
        <translation>Musik wird gesucht</translation>
    </message>
    <message>
        <source>Songs appear here as soon as they have been read.</source>
        <translation>Titel erscheinen hier, sobald sie eingelesen sind.</translation>
    </message>
    <message>
        <source>No Music Found</source>
        <translation>Keine Musik gefunden</translation>
    </message>
    <message>
        <source>Add songs to your music folder, or choose the folder in which your music is.</source>
        <translation>Lege Titel in deinen Musikordner, oder wähle den Ordner aus, in dem deine Musik ist.</translation>
    </message>
    <message>
        <source>Unknown Artist</source>
        <translation>Unbekannter Interpret</translation>
    </message>
    <message>
        <source>Unknown Title</source>
        <translation>Unbekannter Titel</translation>
    </message>
    <message numerus="yes">
        <source>%Ln song</source>
        <translation>
            <numerusform>%Ln Titel</numerusform>
            <numerusform>%Ln Titel</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs</source>
        <translation>
            <numerusform>%Ln Titel</numerusform>
            <numerusform>%Ln Titel</numerusform>
        </translation>
    </message>
    <message>
        <source>Unknown Album</source>
        <translation>Unbekanntes Album</translation>
    </message>
</context>
<context>
    <name>SongPickerView</name>
    <message>
        <source>Stop Reading Music</source>
        <translation>Einlesen der Musik anhalten</translation>
    </message>
</context>
<context>
    <name>TextSizeSlider</name>
    <message>
        <source>Text size</source>
        <translation>Textgröße</translation>
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
        <translation>Titel nicht gefunden</translation>
    </message>
    <message>
        <source>There is no song “%1” in your music library. Music folders are chosen in the settings.</source>
        <translation>In deiner Musikmediathek gibt es keinen Titel „%1“. Musikordner werden in den Einstellungen ausgewählt.</translation>
    </message>
    <message>
        <source>There is no file “%1”.</source>
        <translation>Es gibt keine Datei „%1“.</translation>
    </message>
</context>
<context>
    <name>trackwise::CopyableRow</name>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
</context>
<context>
    <name>trackwise::DetailViewController</name>
    <message>
        <source>Lyrics</source>
        <translation>Liedtext</translation>
    </message>
</context>
<context>
    <name>trackwise::IndexStatus</name>
    <message>
        <source>%1 of %2 songs can be recognized (%3)</source>
        <translation>%1 von %2 Titeln können erkannt werden (%3)</translation>
    </message>
    <message>
        <source>Listening to music: %1 left</source>
        <translation>Musik wird angehört: noch %1</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Angehalten</translation>
    </message>
    <message>
        <source>Paused: saving power</source>
        <translation>Angehalten: Strom wird gespart</translation>
    </message>
    <message>
        <source>Not possible at the moment</source>
        <translation>Zurzeit nicht möglich</translation>
    </message>
    <message>
        <source>What was not recognized just now may be among the songs that are left.</source>
        <translation>Was eben nicht erkannt wurde, ist vielleicht unter den übrigen Titeln.</translation>
    </message>
</context>
<context>
    <name>trackwise::InputSettings</name>
    <message>
        <source>Default input</source>
        <translation>Standardeingang</translation>
    </message>
    <message>
        <source>No microphone found</source>
        <translation>Kein Mikrofon gefunden</translation>
    </message>
    <message>
        <source>Not connected; the default input is used</source>
        <translation>Nicht verbunden; der Standardeingang wird verwendet</translation>
    </message>
    <message>
        <source>This computer&apos;s sound</source>
        <translation>Ton dieses Computers</translation>
    </message>
    <message>
        <source>Whatever it plays, also for headphones</source>
        <translation>Alles, was er wiedergibt, auch über Kopfhörer</translation>
    </message>
    <message>
        <source>Not available now</source>
        <translation>Derzeit nicht verfügbar</translation>
    </message>
    <message>
        <source>Paused; choose an input to go on</source>
        <translation>Angehalten; wähle einen Eingang, um fortzufahren</translation>
    </message>
    <message>
        <source>No sound is coming in</source>
        <translation>Es kommt kein Ton an</translation>
    </message>
</context>
<context>
    <name>trackwise::KeyCommands</name>
    <message>
        <source>New Window</source>
        <translation>Neues Fenster</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Select Song</source>
        <translation>Titel auswählen</translation>
    </message>
    <message>
        <source>Select Song from Now Playing</source>
        <translation>Aktuellen Titel auswählen</translation>
    </message>
    <message>
        <source>Clear Selected Song</source>
        <translation>Titelauswahl aufheben</translation>
    </message>
    <message>
        <source>Paste Link</source>
        <translation>Link einsetzen</translation>
    </message>
    <message>
        <source>Close Window</source>
        <translation>Fenster schließen</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Select Song from Music Recognition</source>
        <translation>Titel per Musikerkennung auswählen</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
</context>
<context>
    <name>trackwise::Launch</name>
    <message>
        <source>Show Demo</source>
        <translation>Demo zeigen</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>Nicht jetzt</translation>
    </message>
    <message>
        <source>No Music Found</source>
        <translation>Keine Musik gefunden</translation>
    </message>
    <message>
        <source>There are no songs in your music folder. Would you like to look around with a dozen demo songs?</source>
        <translation>In deinem Musikordner sind keine Titel. Möchtest du dich mit einem Dutzend Demotiteln umsehen?</translation>
    </message>
    <message>
        <source>Music Library Unreadable</source>
        <translation>Mediathek nicht lesbar</translation>
    </message>
    <message>
        <source>A new library can be made from your music folders. The old file is kept under another name; what only it knows, such as play counts, starts anew.</source>
        <translation>Aus deinen Musikordnern kann eine neue Mediathek angelegt werden. Die alte Datei bleibt unter einem anderen Namen erhalten; was nur sie weiß, etwa wie oft Titel gehört wurden, beginnt von vorn.</translation>
    </message>
    <message>
        <source>New Library</source>
        <translation>Neue Mediathek</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Don&apos;t Allow</source>
        <translation>Nicht erlauben</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>“Trackwise” would like to access the microphone</source>
        <translation>„Trackwise“ möchte auf das Mikrofon zugreifen</translation>
    </message>
    <message>
        <source>It listens only while you look for a song by its sound. What is heard stays on this device and is not kept.</source>
        <translation>Es hört nur zu, während du einen Titel an seinem Klang suchst. Was es hört, bleibt auf diesem Gerät und wird nicht aufbewahrt.</translation>
    </message>
</context>
<context>
    <name>trackwise::LibraryListModel</name>
    <message>
        <source>explicit</source>
        <translation>explizit</translation>
    </message>
    <message>
        <source>file not available</source>
        <translation>Datei nicht verfügbar</translation>
    </message>
</context>
<context>
    <name>trackwise::LibraryRecognition</name>
    <message>
        <source>Microphone already in use</source>
        <translation>Mikrofon wird bereits verwendet</translation>
    </message>
    <message>
        <source>No microphone found</source>
        <translation>Kein Mikrofon gefunden</translation>
    </message>
    <message>
        <source>No sound on this device</source>
        <translation>Kein Ton auf diesem Gerät</translation>
    </message>
    <message>
        <source>Couldn&apos;t read known songs</source>
        <translation>Bekannte Titel nicht lesbar</translation>
    </message>
</context>
<context>
    <name>trackwise::LinkDrop</name>
    <message>
        <source>Song Not Found</source>
        <translation>Titel nicht gefunden</translation>
    </message>
    <message>
        <source>This doesn&apos;t seem to be an Apple Music song.</source>
        <translation>Dies scheint kein Titel von Apple Music zu sein.</translation>
    </message>
    <message>
        <source>This doesn&apos;t seem to be a valid song.</source>
        <translation>Dies scheint kein gültiger Titel zu sein.</translation>
    </message>
    <message>
        <source>Failed to Look Up Song</source>
        <translation>Titel konnte nicht nachgeschlagen werden</translation>
    </message>
    <message>
        <source>You can try to find it via Select Song.</source>
        <translation>Du kannst versuchen, ihn über „Titel auswählen“ zu finden.</translation>
    </message>
    <message>
        <source>Failed to Load Song</source>
        <translation>Titel konnte nicht geladen werden</translation>
    </message>
    <message>
        <source>Please check your internet connection and try again. Or you can find it via Select Song without an internet connection.</source>
        <translation>Bitte prüfe deine Internetverbindung und versuche es erneut. Über „Titel auswählen“ findest du ihn auch ohne Internetverbindung.</translation>
    </message>
    <message>
        <source>Couldn&apos;t Find Song</source>
        <translation>Titel nicht gefunden</translation>
    </message>
    <message>
        <source>Songs do need to be added to your library to get their info. If this song isn&apos;t in your library, add it then try again.</source>
        <translation>Titel müssen in deiner Mediathek sein, damit ihre Informationen gezeigt werden können. Wenn dieser Titel nicht darin ist, füge ihn hinzu und versuche es erneut.</translation>
    </message>
</context>
<context>
    <name>trackwise::ListeningStatus</name>
    <message>
        <source>Listening to music: %1 of %2</source>
        <translation>Musik wird angehört: %1 von %2</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Angehalten</translation>
    </message>
    <message>
        <source>Paused: saving power</source>
        <translation>Angehalten: Strom wird gespart</translation>
    </message>
    <message>
        <source>So that it can be recognized</source>
        <translation>Damit sie erkannt werden kann</translation>
    </message>
    <message>
        <source>Go On Listening to Music</source>
        <translation>Musik weiter anhören</translation>
    </message>
    <message>
        <source>Pause Listening to Music</source>
        <translation>Anhören der Musik anhalten</translation>
    </message>
</context>
<context>
    <name>trackwise::MediaPicker</name>
    <message>
        <source>Select Song</source>
        <translation>Titel auswählen</translation>
    </message>
    <message>
        <source>Artist or Album</source>
        <translation>Interpret oder Album</translation>
    </message>
</context>
<context>
    <name>trackwise::MoreMenu</name>
    <message>
        <source>Now Playing</source>
        <translation>Aktueller Titel</translation>
    </message>
    <message>
        <source>Clear Selected Song</source>
        <translation>Titelauswahl aufheben</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Select Song from</source>
        <translation>Titel auswählen aus</translation>
    </message>
    <message>
        <source>Listening…</source>
        <translation>Hört zu …</translation>
    </message>
    <message>
        <source>Music Recognition</source>
        <translation>Musikerkennung</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
</context>
<context>
    <name>trackwise::ScanStatus</name>
    <message>
        <source>Reading music: %1 of %2</source>
        <translation>Musik wird eingelesen: %1 von %2</translation>
    </message>
    <message>
        <source>Looking for music: %1 of %2 found</source>
        <translation>Musik wird gesucht: %1 von bisher %2</translation>
    </message>
</context>
<context>
    <name>trackwise::SettingsScreen</name>
    <message>
        <source>Music Access</source>
        <translation>Zugriff auf Musik</translation>
    </message>
    <message>
        <source>Extra Small</source>
        <translation>Sehr klein</translation>
    </message>
    <message>
        <source>Small</source>
        <translation>Klein</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Large</source>
        <translation>Groß</translation>
    </message>
    <message>
        <source>Extra Large</source>
        <translation>Sehr groß</translation>
    </message>
    <message>
        <source>Largest of the Usual Sizes</source>
        <translation>Größte der üblichen Größen</translation>
    </message>
    <message>
        <source>Accessibility %1</source>
        <translation>Bedienungshilfe %1</translation>
    </message>
    <message>
        <source>Not available now</source>
        <translation>Derzeit nicht verfügbar</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
</context>
<context>
    <name>trackwise::SongPickerSource</name>
    <message>
        <source>Select Song</source>
        <translation>Titel auswählen</translation>
    </message>
</context>
</TS>
