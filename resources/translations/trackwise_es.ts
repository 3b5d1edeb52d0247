<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES">
<context>
    <name>ArtworkTile</name>
    <message>
        <source>Album artwork</source>
        <translation type="vanished">Carátula del álbum</translation>
    </message>
    <message>
        <source>Album artwork, empty</source>
        <translation type="vanished">Carátula del álbum, vacía</translation>
    </message>
</context>
<context>
    <name>ArtworkView</name>
    <message>
        <source>Explicit</source>
        <translation type="vanished">Contenido explícito</translation>
    </message>
</context>
<context>
    <name>ContextMenu</name>
    <message>
        <source>Menu</source>
        <translation type="vanished">Menú</translation>
    </message>
</context>
<context>
    <name>CopyMenu</name>
    <message>
        <source>Copy</source>
        <translation type="vanished">Copiar</translation>
    </message>
</context>
<context>
    <name>DetailAlerts</name>
    <message>
        <source>Open Music</source>
        <translation type="vanished">Abrir Música</translation>
    </message>
    <message>
        <source>Open Settings</source>
        <translation type="vanished">Abrir ajustes</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="vanished">Cancelar</translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="vanished">Aceptar</translation>
    </message>
    <message>
        <source>Song Not Added to Library</source>
        <translation type="vanished">La canción no está en la biblioteca</translation>
    </message>
    <message>
        <source>This song needs to be added to your Music Library to access its information. You can do this in the Music app.</source>
        <translation type="vanished">Para acceder a la información de esta canción, debe añadirla a su biblioteca musical. Puede hacerlo en la aplicación Música.</translation>
    </message>
    <message>
        <source>No Music Access</source>
        <translation type="vanished">Sin acceso a la música</translation>
    </message>
    <message>
        <source>Trackwise does not currently have access to your music library. Please turn on Media &amp; Apple Music access in the Settings app.</source>
        <translation type="vanished">Trackwise no tiene acceso en este momento a su biblioteca musical. Active el acceso a «Contenido y Apple Music» en la aplicación Ajustes.</translation>
    </message>
    <message>
        <source>Trackwise does not have access to your music library due to restrictions enabled on your device.</source>
        <translation type="vanished">Trackwise no tiene acceso a su biblioteca musical debido a las restricciones activadas en su dispositivo.</translation>
    </message>
    <message>
        <source>No Song Playing</source>
        <translation type="vanished">No se está reproduciendo ninguna canción</translation>
    </message>
    <message>
        <source>Would you like to play something?</source>
        <translation type="vanished">¿Desea reproducir algo?</translation>
    </message>
</context>
<context>
    <name>DetailView</name>
    <message>
        <source>Select Song</source>
        <translation type="vanished">Elegir canción</translation>
    </message>
    <message>
        <source>More</source>
        <translation type="vanished">Más</translation>
    </message>
    <message>
        <source>No Song Selected</source>
        <translation type="vanished">Ninguna canción elegida</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Copy</source>
        <translation type="vanished">Copiar</translation>
    </message>
</context>
<context>
    <name>EmptyStateView</name>
    <message>
        <source>Choose Folder…</source>
        <translation type="vanished">Elegir carpeta…</translation>
    </message>
</context>
<context>
    <name>FolderList</name>
    <message>
        <source>Remove %1</source>
        <translation type="vanished">Quitar %1</translation>
    </message>
</context>
<context>
    <name>InformationHeader</name>
    <message>
        <source>Information</source>
        <translation type="vanished">Información</translation>
    </message>
    <message>
        <source>Show Less</source>
        <translation type="vanished">Mostrar menos</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation type="vanished">Mostrar más</translation>
    </message>
</context>
<context>
    <name>LibraryAccessView</name>
    <message>
        <source>“Trackwise” would like to access your music library</source>
        <translation type="vanished">«Trackwise» quiere acceder a su biblioteca musical</translation>
    </message>
    <message>
        <source>It shows what your library knows about a song. It reads the music in these folders and never changes it.</source>
        <translation type="vanished">La aplicación muestra lo que su biblioteca sabe de una canción. Lee la música de estas carpetas y nunca la modifica.</translation>
    </message>
    <message>
        <source>Choose Another Folder…</source>
        <translation type="vanished">Elegir otra carpeta…</translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="vanished">Aceptar</translation>
    </message>
    <message>
        <source>Don&apos;t Allow</source>
        <translation type="vanished">No permitir</translation>
    </message>
</context>
<context>
    <name>LyricsView</name>
    <message>
        <source>Lyrics</source>
        <translation type="vanished">Letra</translation>
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
        <translation type="vanished">Abrir la aplicación Música</translation>
    </message>
</context>
<context>
    <name>PickerPages</name>
    <message>
        <source>Search Results</source>
        <translation type="vanished">Resultados de la búsqueda</translation>
    </message>
</context>
<context>
    <name>PickerTabs</name>
    <message>
        <source>Songs</source>
        <translation type="vanished">Canciones</translation>
    </message>
    <message>
        <source>Artists</source>
        <translation type="vanished">Artistas</translation>
    </message>
    <message>
        <source>Albums</source>
        <translation type="vanished">Álbumes</translation>
    </message>
    <message>
        <source>Recently Added</source>
        <translation type="vanished">Añadido recientemente</translation>
    </message>
    <message>
        <source>Lists</source>
        <translation type="vanished">Listas</translation>
    </message>
</context>
<context>
    <name>PickerTitleBar</name>
    <message>
        <source>Back</source>
        <translation type="vanished">Atrás</translation>
    </message>
    <message>
        <source>Scan Again</source>
        <translation type="vanished">Volver a analizar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="vanished">Cancelar</translation>
    </message>
</context>
<context>
    <name>PlaybackRow</name>
    <message>
        <source>NOW PLAYING</source>
        <translation type="vanished">EN REPRODUCCIÓN</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation type="vanished">Pausa</translation>
    </message>
    <message>
        <source>Play</source>
        <translation type="vanished">Reproducir</translation>
    </message>
</context>
<context>
    <name>PushedView</name>
    <message>
        <source>Back</source>
        <translation type="vanished">Atrás</translation>
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
        <translation type="vanished">¿Le gusta Trackwise?</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation type="vanished">Ahora no</translation>
    </message>
    <message>
        <source>Write a Review</source>
        <translation type="vanished">Escribir una reseña</translation>
    </message>
</context>
<context>
    <name>ScanBanner</name>
    <message>
        <source>Stop Reading Music</source>
        <translation type="vanished">Detener el análisis de la música</translation>
    </message>
</context>
<context>
    <name>SearchField</name>
    <message>
        <source>Search Songs</source>
        <translation type="vanished">Buscar canciones</translation>
    </message>
    <message>
        <source>Clear Search</source>
        <translation type="vanished">Borrar la búsqueda</translation>
    </message>
</context>
<context>
    <name>SectionIndex</name>
    <message>
        <source>Letters</source>
        <translation type="vanished">Letras del alfabeto</translation>
    </message>
</context>
<context>
    <name>SettingsView</name>
    <message>
        <source>Settings</source>
        <translation type="vanished">Ajustes</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation type="vanished">Automático</translation>
    </message>
    <message>
        <source>Light</source>
        <translation type="vanished">Claro</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation type="vanished">Oscuro</translation>
    </message>
    <message>
        <source>Reduced</source>
        <translation type="vanished">Reducido</translation>
    </message>
    <message>
        <source>Full</source>
        <translation type="vanished">Completo</translation>
    </message>
    <message>
        <source>Done</source>
        <translation type="vanished">Listo</translation>
    </message>
    <message>
        <source>Music</source>
        <translation type="vanished">Música</translation>
    </message>
    <message>
        <source>Music access</source>
        <translation type="vanished">Acceso a la música</translation>
    </message>
    <message>
        <source>The system does not let Trackwise read your music folders.</source>
        <translation type="vanished">El sistema no permite que Trackwise lea sus carpetas de música.</translation>
    </message>
    <message>
        <source>Trackwise reads your music and never changes it.</source>
        <translation type="vanished">Trackwise lee su música y nunca la modifica.</translation>
    </message>
    <message>
        <source>Add Music Folder…</source>
        <translation type="vanished">Añadir carpeta de música…</translation>
    </message>
    <message>
        <source>Scan Again</source>
        <translation type="vanished">Volver a analizar</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation type="vanished">Micrófono</translation>
    </message>
    <message>
        <source>Microphone access</source>
        <translation type="vanished">Acceso al micrófono</translation>
    </message>
    <message>
        <source>For recognizing the music around you. What is heard stays on this device.</source>
        <translation type="vanished">Para reconocer la música que suena a su alrededor. Lo que se escucha no sale de este dispositivo.</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation type="vanished">Apariencia</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation type="vanished">Tema</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation type="vanished">Movimiento</translation>
    </message>
    <message>
        <source>Reduced motion fades where it would slide.</source>
        <translation type="vanished">El movimiento reducido sustituye los deslizamientos por fundidos.</translation>
    </message>
    <message>
        <source>Text size of the desktop</source>
        <translation type="vanished">Tamaño del texto del escritorio</translation>
    </message>
    <message>
        <source>Players to Ignore</source>
        <translation type="vanished">Reproductores ignorados</translation>
    </message>
    <message>
        <source>Other players are listed here while they run.</source>
        <translation type="vanished">Los demás reproductores aparecen aquí mientras están abiertos.</translation>
    </message>
    <message>
        <source>Ignore %1</source>
        <translation type="vanished">Ignorar %1</translation>
    </message>
</context>
<context>
    <name>SongPicker</name>
    <message>
        <source>No Results</source>
        <translation type="vanished">Sin resultados</translation>
    </message>
    <message>
        <source>No song matches “%1”.</source>
        <translation type="vanished">Ninguna canción coincide con «%1».</translation>
    </message>
    <message>
        <source>Looking for Music</source>
        <translation type="vanished">Buscando música</translation>
    </message>
    <message>
        <source>Songs appear here as soon as they have been read.</source>
        <translation type="vanished">Las canciones aparecen aquí en cuanto se han analizado.</translation>
    </message>
    <message>
        <source>No Music Found</source>
        <translation type="vanished">No se ha encontrado música</translation>
    </message>
    <message>
        <source>Add songs to your music folder, or choose the folder in which your music is.</source>
        <translation type="vanished">Añada canciones a su carpeta de música o elija la carpeta en la que está su música.</translation>
    </message>
    <message>
        <source>Unknown Artist</source>
        <translation type="vanished">Artista desconocido</translation>
    </message>
    <message>
        <source>Unknown Title</source>
        <translation type="vanished">Título desconocido</translation>
    </message>
    <message>
        <source>Unknown Album</source>
        <translation type="vanished">Álbum desconocido</translation>
    </message>
    <message numerus="yes">
        <source>%n song</source>
        <translation type="vanished">
            <numerusform>%n canción</numerusform>
            <numerusform>%n canciones</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n songs</source>
        <translation type="vanished">
            <numerusform>%n canción</numerusform>
            <numerusform>%n canciones</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TextSizeSlider</name>
    <message>
        <source>Text size</source>
        <translation type="vanished">Tamaño del texto</translation>
    </message>
</context>
<context>
    <name>trackwise::AddressOpening</name>
    <message>
        <source>Song Not Found</source>
        <translation type="vanished">Canción no encontrada</translation>
    </message>
    <message>
        <source>There is no song “%1” in your music library. Music folders are chosen in the settings.</source>
        <translation type="vanished">No hay ninguna canción «%1» en su biblioteca musical. Las carpetas de música se eligen en los ajustes.</translation>
    </message>
    <message>
        <source>There is no file “%1”.</source>
        <translation type="vanished">No existe ningún archivo «%1».</translation>
    </message>
</context>
<context>
    <name>trackwise::CopyableRow</name>
    <message>
        <source>Copy</source>
        <translation type="vanished">Copiar</translation>
    </message>
</context>
<context>
    <name>trackwise::DetailViewController</name>
    <message>
        <source>Lyrics</source>
        <translation type="vanished">Letra</translation>
    </message>
</context>
<context>
    <name>trackwise::Launch</name>
    <message>
        <source>Cancel</source>
        <translation type="vanished">Cancelar</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation type="vanished">Salir</translation>
    </message>
    <message>
        <source>A new library can be made from your music folders. The old file is kept under another name; what only it knows, such as play counts, starts anew.</source>
        <translation type="vanished">Se puede crear una biblioteca nueva a partir de sus carpetas de música. El archivo antiguo se conserva con otro nombre; lo que solo él contiene, como el número de reproducciones, empieza de cero.</translation>
    </message>
    <message>
        <source>New Library</source>
        <translation type="vanished">Biblioteca nueva</translation>
    </message>
    <message>
        <source>Music Library Unreadable</source>
        <translation type="vanished">No se puede leer la biblioteca musical</translation>
    </message>
    <message>
        <source>Show Demo</source>
        <translation type="vanished">Mostrar la demostración</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation type="vanished">Ahora no</translation>
    </message>
    <message>
        <source>No Music Found</source>
        <translation type="vanished">No se ha encontrado música</translation>
    </message>
    <message>
        <source>There are no songs in your music folder. Would you like to look around with a dozen demo songs?</source>
        <translation type="vanished">No hay canciones en su carpeta de música. ¿Desea conocer Trackwise con una docena de canciones de demostración?</translation>
    </message>
</context>
<context>
    <name>trackwise::LibraryListModel</name>
    <message>
        <source>explicit</source>
        <translation type="vanished">contenido explícito</translation>
    </message>
    <message>
        <source>file not available</source>
        <translation type="vanished">archivo no disponible</translation>
    </message>
</context>
<context>
    <name>trackwise::LinkDrop</name>
    <message>
        <source>Song Not Found</source>
        <translation type="vanished">Canción no encontrada</translation>
    </message>
    <message>
        <source>This doesn&apos;t seem to be an Apple Music song.</source>
        <translation type="vanished">No parece ser una canción de Apple Music.</translation>
    </message>
    <message>
        <source>This doesn&apos;t seem to be a valid song.</source>
        <translation type="vanished">No parece ser una canción válida.</translation>
    </message>
    <message>
        <source>Failed to Look Up Song</source>
        <translation type="vanished">Error al buscar la canción</translation>
    </message>
    <message>
        <source>You can try to find it via Select Song.</source>
        <translation type="vanished">Puede intentar encontrarla con «Elegir canción».</translation>
    </message>
    <message>
        <source>Failed to Load Song</source>
        <translation type="vanished">Error al cargar la canción</translation>
    </message>
    <message>
        <source>Please check your internet connection and try again. Or you can find it via Select Song without an internet connection.</source>
        <translation type="vanished">Compruebe su conexión a Internet e inténtelo de nuevo. Con «Elegir canción» también puede encontrarla sin conexión a Internet.</translation>
    </message>
    <message>
        <source>Couldn&apos;t Find Song</source>
        <translation type="vanished">No se ha encontrado la canción</translation>
    </message>
    <message>
        <source>Songs do need to be added to your library to get their info. If this song isn&apos;t in your library, add it then try again.</source>
        <translation type="vanished">Para obtener la información de las canciones, deben estar en su biblioteca. Si esta canción no está en ella, añádala e inténtelo de nuevo.</translation>
    </message>
</context>
<context>
    <name>trackwise::MediaPicker</name>
    <message>
        <source>Select Song</source>
        <translation type="vanished">Elegir canción</translation>
    </message>
    <message>
        <source>Artist or Album</source>
        <translation type="vanished">Artista o álbum</translation>
    </message>
</context>
<context>
    <name>trackwise::MoreMenu</name>
    <message>
        <source>Now Playing</source>
        <translation type="vanished">En reproducción</translation>
    </message>
    <message>
        <source>Clear Selected Song</source>
        <translation type="vanished">Deseleccionar la canción</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation type="vanished">Ajustes</translation>
    </message>
    <message>
        <source>Select Song from</source>
        <translation type="vanished">Elegir canción de</translation>
    </message>
</context>
<context>
    <name>trackwise::ScanStatus</name>
    <message>
        <source>Reading music: %1 of %2</source>
        <translation type="vanished">Analizando la música: %1 de %2</translation>
    </message>
    <message>
        <source>Looking for music: %1 of %2 found</source>
        <translation type="vanished">Buscando música: %1 de %2 encontradas</translation>
    </message>
</context>
<context>
    <name>trackwise::SettingsScreen</name>
    <message>
        <source>Music Access</source>
        <translation type="vanished">Acceso a la música</translation>
    </message>
    <message>
        <source>Extra Small</source>
        <translation type="vanished">Muy pequeño</translation>
    </message>
    <message>
        <source>Small</source>
        <translation type="vanished">Pequeño</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation type="vanished">Mediano</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation type="vanished">Estándar</translation>
    </message>
    <message>
        <source>Large</source>
        <translation type="vanished">Grande</translation>
    </message>
    <message>
        <source>Extra Large</source>
        <translation type="vanished">Muy grande</translation>
    </message>
    <message>
        <source>Largest of the Usual Sizes</source>
        <translation type="vanished">El mayor de los tamaños habituales</translation>
    </message>
    <message>
        <source>Accessibility %1</source>
        <translation type="vanished">Accesibilidad %1</translation>
    </message>
    <message>
        <source>Not available now</source>
        <translation type="vanished">No disponible ahora</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation type="vanished">Ajustes</translation>
    </message>
</context>
<context>
    <name>trackwise::SongPickerSource</name>
    <message>
        <source>Select Song</source>
        <translation type="vanished">Elegir canción</translation>
    </message>
</context>
</TS>
