<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES">
<context>
    <name>AboutButtons</name>
    <message>
        <source>More Apps</source>
        <translation>Más apps</translation>
    </message>
    <message>
        <source>Rate on App Store</source>
        <translation>Valorar en App Store</translation>
    </message>
    <message>
        <source>Privacy Policy</source>
        <translation>Privacidad</translation>
    </message>
</context>
<context>
    <name>AboutIcon</name>
    <message>
        <source>App icon</source>
        <translation>Icono de la app</translation>
    </message>
</context>
<context>
    <name>AboutView</name>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>ArtworkTile</name>
    <message>
        <source>Album artwork</source>
        <translation>Carátula del álbum</translation>
    </message>
    <message>
        <source>Album artwork, empty</source>
        <translation>Carátula del álbum, vacía</translation>
    </message>
</context>
<context>
    <name>ArtworkView</name>
    <message>
        <source>Explicit</source>
        <translation>Contenido explícito</translation>
    </message>
</context>
<context>
    <name>ContextMenu</name>
    <message>
        <source>Menu</source>
        <translation>Menú</translation>
    </message>
</context>
<context>
    <name>CopyMenu</name>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
</context>
<context>
    <name>DetailAlerts</name>
    <message>
        <source>Open Music</source>
        <translation>Abrir Música</translation>
    </message>
    <message>
        <source>Open Settings</source>
        <translation>Abrir ajustes</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Song Not Added to Library</source>
        <translation>La canción no está en la biblioteca</translation>
    </message>
    <message>
        <source>This song needs to be added to your Music Library to access its information. You can do this in the Music app.</source>
        <translation>Para acceder a la información de esta canción, debe añadirla a su biblioteca musical. Puede hacerlo en la aplicación Música.</translation>
    </message>
    <message>
        <source>No Music Access</source>
        <translation>Sin acceso a la música</translation>
    </message>
    <message>
        <source>Trackwise does not currently have access to your music library. Please turn on Media &amp; Apple Music access in the Settings app.</source>
        <translation>Trackwise no tiene acceso en este momento a su biblioteca musical. Active el acceso a «Contenido y Apple Music» en la aplicación Ajustes.</translation>
    </message>
    <message>
        <source>Trackwise does not have access to your music library due to restrictions enabled on your device.</source>
        <translation>Trackwise no tiene acceso a su biblioteca musical debido a las restricciones activadas en su dispositivo.</translation>
    </message>
    <message>
        <source>No Song Playing</source>
        <translation>No suena ninguna canción</translation>
    </message>
    <message>
        <source>Would you like to play something?</source>
        <translation>¿Desea reproducir algo?</translation>
    </message>
    <message>
        <source>No Microphone Access</source>
        <translation>Sin acceso al micrófono</translation>
    </message>
    <message>
        <source>Trackwise does not currently have access to your microphone. Please turn on Microphone access in the Settings app.</source>
        <translation>Trackwise no tiene acceso en este momento a su micrófono. Active el acceso al micrófono en la aplicación Ajustes.</translation>
    </message>
</context>
<context>
    <name>DetailView</name>
    <message>
        <source>Select Song</source>
        <translation>Elegir canción</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Más</translation>
    </message>
    <message>
        <source>No Song Selected</source>
        <translation>Ninguna canción elegida</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
</context>
<context>
    <name>EmptyStateView</name>
    <message>
        <source>Choose Folder…</source>
        <translation>Elegir carpeta…</translation>
    </message>
</context>
<context>
    <name>FolderList</name>
    <message>
        <source>Remove %1</source>
        <translation>Quitar %1</translation>
    </message>
</context>
<context>
    <name>HelpView</name>
    <message>
        <source>Help</source>
        <translation>Ayuda</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Listo</translation>
    </message>
    <message>
        <source>App</source>
        <translation>App</translation>
    </message>
    <message>
        <source>Select any song from your music library in the Trackwise app to view its information. This works with songs you&apos;ve added to your library via Apple Music as well as purchased, matched, uploaded, and synced songs. Note that songs on Apple Music that haven&apos;t been added to your library cannot be accessed.</source>
        <translation>Elija cualquier canción de su biblioteca musical en la app Trackwise para ver su información. Esto funciona con las canciones que haya añadido a su biblioteca desde Apple Music y también con las compradas, asociadas, subidas y sincronizadas. Tenga en cuenta que no se puede acceder a las canciones de Apple Music que no se hayan añadido a su biblioteca.</translation>
    </message>
    <message>
        <source>Share Sheet Action</source>
        <translation>Acción del menú Compartir</translation>
    </message>
    <message>
        <source>Share a song in the Music app to view its information right from the share sheet. I recommend adding Get Trackwise to your favorites via Edit Actions so it&apos;s easily accessible in the top section. Note that the Music app does not have a share button for songs not available on Apple Music.</source>
        <translation>Comparta una canción en la app Música para ver su información directamente en el menú Compartir. Le recomiendo añadir «Get Trackwise» a sus favoritos mediante «Editar acciones», para tenerla a mano en la parte superior. Tenga en cuenta que la app Música no muestra el botón de compartir en las canciones que no están disponibles en Apple Music.</translation>
    </message>
    <message>
        <source>The action extension will try to look up the song in your library. This may require an internet connection and it&apos;s possible it may not be able to find the right song, for example, if you&apos;ve renamed that song. If an error occurs, you can use the app to view its information even without an internet connection.</source>
        <translation>La extensión intentará encontrar la canción en su biblioteca. Esto puede requerir una conexión a Internet, y es posible que no encuentre la canción correcta, por ejemplo, si le ha cambiado el nombre. Si se produce un error, puede usar la app para ver su información incluso sin conexión a Internet.</translation>
    </message>
    <message>
        <source>Contact Support</source>
        <translation>Contactar con soporte</translation>
    </message>
    <message>
        <source>Reach out if you have any questions or feedback!</source>
        <translation>¡Escríbame si tiene preguntas o comentarios!</translation>
    </message>
    <message>
        <source>Email the Developer</source>
        <translation>Escribir al desarrollador</translation>
    </message>
</context>
<context>
    <name>InformationHeader</name>
    <message>
        <source>Information</source>
        <translation>Información</translation>
    </message>
    <message>
        <source>Show Less</source>
        <translation>Mostrar menos</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation>Mostrar más</translation>
    </message>
</context>
<context>
    <name>LibraryAccessView</name>
    <message>
        <source>“Trackwise” would like to access your music library</source>
        <translation>«Trackwise» quiere acceder a su biblioteca musical</translation>
    </message>
    <message>
        <source>It shows what your library knows about a song. It reads the music in these folders and never changes it.</source>
        <translation>La aplicación muestra lo que su biblioteca sabe de una canción. Lee la música de estas carpetas y nunca la modifica.</translation>
    </message>
    <message>
        <source>Choose Another Folder…</source>
        <translation>Elegir otra carpeta…</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Don&apos;t Allow</source>
        <translation>No permitir</translation>
    </message>
</context>
<context>
    <name>LyricsView</name>
    <message>
        <source>Lyrics</source>
        <translation>Letra</translation>
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
        <translation>Barra de menús</translation>
    </message>
</context>
<context>
    <name>MicrophoneSection</name>
    <message>
        <source>Microphone</source>
        <translation>Micrófono</translation>
    </message>
    <message>
        <source>Microphone access</source>
        <translation>Acceso al micrófono</translation>
    </message>
    <message>
        <source>For recognizing the music around you. What is heard stays on this device.</source>
        <translation>Para reconocer la música que suena a su alrededor. Lo que se escucha no sale de este dispositivo.</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>Entrada</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Nivel</translation>
    </message>
</context>
<context>
    <name>MusicAppLink</name>
    <message>
        <source>Open Music app</source>
        <translation>Abrir la aplicación Música</translation>
    </message>
</context>
<context>
    <name>PickerPages</name>
    <message>
        <source>Search Results</source>
        <translation>Resultados de la búsqueda</translation>
    </message>
</context>
<context>
    <name>PickerTabs</name>
    <message>
        <source>Songs</source>
        <translation>Canciones</translation>
    </message>
    <message>
        <source>Artists</source>
        <translation>Artistas</translation>
    </message>
    <message>
        <source>Albums</source>
        <translation>Álbumes</translation>
    </message>
    <message>
        <source>Recently Added</source>
        <translation>Añadido recientemente</translation>
    </message>
    <message>
        <source>Lists</source>
        <translation>Listas</translation>
    </message>
</context>
<context>
    <name>PickerTitleBar</name>
    <message>
        <source>Back</source>
        <translation>Atrás</translation>
    </message>
    <message>
        <source>Scan Again</source>
        <translation>Volver a analizar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>PlaybackRow</name>
    <message>
        <source>NOW PLAYING</source>
        <translation>SUENA AHORA</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausa</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Reproducir</translation>
    </message>
</context>
<context>
    <name>PushedView</name>
    <message>
        <source>Back</source>
        <translation>Atrás</translation>
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
        <translation>Escuchando</translation>
    </message>
    <message>
        <source>Microphone already in use</source>
        <translation>El micrófono ya está en uso</translation>
    </message>
    <message>
        <source>Song Identified</source>
        <translation>Canción reconocida</translation>
    </message>
    <message>
        <source>Song identified</source>
        <translation>Canción reconocida</translation>
    </message>
    <message>
        <source>Song Not Found</source>
        <translation>Canción no encontrada</translation>
    </message>
    <message>
        <source>Couldn&apos;t find in your library</source>
        <translation>No está en su biblioteca</translation>
    </message>
    <message>
        <source>Song not found, couldn&apos;t find in your library</source>
        <translation>Canción no encontrada, no está en su biblioteca</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>Error occurred, %1</source>
        <translation>Se ha producido un error, %1</translation>
    </message>
    <message>
        <source>Music Recognition</source>
        <translation>Reconocimiento de música</translation>
    </message>
    <message>
        <source>Listening…</source>
        <translation>Escuchando…</translation>
    </message>
    <message>
        <source>No Result</source>
        <translation>Sin resultado</translation>
    </message>
    <message>
        <source>Couldn&apos;t identify song</source>
        <translation>No se ha reconocido la canción</translation>
    </message>
    <message>
        <source>No result, couldn&apos;t identify song</source>
        <translation>Sin resultado, no se ha reconocido la canción</translation>
    </message>
    <message>
        <source>Song identified, %1 by %2</source>
        <translation>Canción reconocida, %1 de %2</translation>
    </message>
    <message>
        <source>Not Found in Your Library</source>
        <translation>No está en su biblioteca</translation>
    </message>
    <message>
        <source>No sound is coming in</source>
        <translation>No llega ningún sonido</translation>
    </message>
</context>
<context>
    <name>RecognitionSection</name>
    <message>
        <source>Music Recognition</source>
        <translation>Reconocimiento de música</translation>
    </message>
    <message>
        <source>Get to know songs by ear</source>
        <translation>Aprender las canciones de oído</translation>
    </message>
    <message>
        <source>Begin Anew</source>
        <translation>Empezar de nuevo</translation>
    </message>
    <message>
        <source>Forget All Songs</source>
        <translation>Olvidar todas las canciones</translation>
    </message>
</context>
<context>
    <name>ReviewCard</name>
    <message>
        <source>Do you like Trackwise?</source>
        <translation>¿Le gusta Trackwise?</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>Ahora no</translation>
    </message>
    <message>
        <source>Write a Review</source>
        <translation>Escribir una reseña</translation>
    </message>
</context>
<context>
    <name>SearchField</name>
    <message>
        <source>Search Songs</source>
        <translation>Buscar</translation>
    </message>
    <message>
        <source>Clear Search</source>
        <translation>Borrar la búsqueda</translation>
    </message>
</context>
<context>
    <name>SectionIndex</name>
    <message>
        <source>Letters</source>
        <translation>Letras del alfabeto</translation>
    </message>
</context>
<context>
    <name>SettingsView</name>
    <message>
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automático</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Claro</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Oscuro</translation>
    </message>
    <message>
        <source>Reduced</source>
        <translation>Reducido</translation>
    </message>
    <message>
        <source>Full</source>
        <translation>Completo</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Listo</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Música</translation>
    </message>
    <message>
        <source>Music access</source>
        <translation>Acceso a la música</translation>
    </message>
    <message>
        <source>The system does not let Trackwise read your music folders.</source>
        <translation>El sistema no permite que Trackwise lea sus carpetas de música.</translation>
    </message>
    <message>
        <source>Trackwise reads your music and never changes it.</source>
        <translation>Trackwise lee su música y nunca la modifica.</translation>
    </message>
    <message>
        <source>Add Music Folder…</source>
        <translation>Añadir carpeta de música…</translation>
    </message>
    <message>
        <source>Scan Again</source>
        <translation>Volver a analizar</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Apariencia</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Tema</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation>Movimiento</translation>
    </message>
    <message>
        <source>Reduced motion fades where it would slide.</source>
        <translation>El movimiento reducido sustituye los deslizamientos por fundidos.</translation>
    </message>
    <message>
        <source>Text size of the desktop</source>
        <translation>Tamaño del texto del escritorio</translation>
    </message>
    <message>
        <source>Players to Ignore</source>
        <translation>Reproductores ignorados</translation>
    </message>
    <message>
        <source>Other players are listed here while they run.</source>
        <translation>Los demás reproductores aparecen aquí mientras están abiertos.</translation>
    </message>
    <message>
        <source>Ignore %1</source>
        <translation>Ignorar %1</translation>
    </message>
    <message>
        <source>Show menu bar</source>
        <translation>Mostrar la barra de menús</translation>
    </message>
    <message>
        <source>Otherwise Alt or F10 shows it.</source>
        <translation>Si no, aparece con Alt o F10.</translation>
    </message>
</context>
<context>
    <name>SongPicker</name>
    <message>
        <source>No Results</source>
        <translation>Sin resultados</translation>
    </message>
    <message>
        <source>No song matches “%1”.</source>
        <translation>Ninguna canción coincide con «%1».</translation>
    </message>
    <message>
        <source>Looking for Music</source>
        <translation>Buscando música</translation>
    </message>
    <message>
        <source>Songs appear here as soon as they have been read.</source>
        <translation>Las canciones aparecen aquí en cuanto se han analizado.</translation>
    </message>
    <message>
        <source>No Music Found</source>
        <translation>No se ha encontrado música</translation>
    </message>
    <message>
        <source>Add songs to your music folder, or choose the folder in which your music is.</source>
        <translation>Añada canciones a su carpeta de música o elija la carpeta en la que está su música.</translation>
    </message>
    <message>
        <source>Unknown Artist</source>
        <translation>Artista desconocido</translation>
    </message>
    <message>
        <source>Unknown Title</source>
        <translation>Título desconocido</translation>
    </message>
    <message>
        <source>Unknown Album</source>
        <translation>Álbum desconocido</translation>
    </message>
    <message numerus="yes">
        <source>%Ln song</source>
        <translation>
            <numerusform>%Ln canción</numerusform>
            <numerusform>%Ln canciones</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs</source>
        <translation>
            <numerusform>%Ln canción</numerusform>
            <numerusform>%Ln canciones</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SongPickerView</name>
    <message>
        <source>Stop Reading Music</source>
        <translation>Detener el análisis de la música</translation>
    </message>
</context>
<context>
    <name>TextSizeSlider</name>
    <message>
        <source>Text size</source>
        <translation>Tamaño del texto</translation>
    </message>
</context>
<context>
    <name>trackwise::AboutView</name>
    <message>
        <source>Version %1</source>
        <translation>Versión %1</translation>
    </message>
</context>
<context>
    <name>trackwise::AddressOpening</name>
    <message>
        <source>Song Not Found</source>
        <translation>Canción no encontrada</translation>
    </message>
    <message>
        <source>There is no song “%1” in your music library. Music folders are chosen in the settings.</source>
        <translation>No hay ninguna canción «%1» en su biblioteca musical. Las carpetas de música se eligen en los ajustes.</translation>
    </message>
    <message>
        <source>There is no file “%1”.</source>
        <translation>No existe ningún archivo «%1».</translation>
    </message>
</context>
<context>
    <name>trackwise::CopyableRow</name>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
</context>
<context>
    <name>trackwise::DetailViewController</name>
    <message>
        <source>Lyrics</source>
        <translation>Letra</translation>
    </message>
</context>
<context>
    <name>trackwise::IndexStatus</name>
    <message>
        <source>%1 of %2 songs can be recognized (%3)</source>
        <translation>Se pueden reconocer %1 de %2 canciones (%3)</translation>
    </message>
    <message>
        <source>Listening to music: %1 left</source>
        <translation>Escuchando música: quedan %1</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>En pausa</translation>
    </message>
    <message>
        <source>Paused: saving power</source>
        <translation>En pausa: ahorro de energía</translation>
    </message>
    <message>
        <source>Not possible at the moment</source>
        <translation>No es posible por el momento</translation>
    </message>
    <message>
        <source>What was not recognized just now may be among the songs that are left.</source>
        <translation>Es posible que lo que no se ha reconocido esté entre las canciones que faltan.</translation>
    </message>
</context>
<context>
    <name>trackwise::InputSettings</name>
    <message>
        <source>Default input</source>
        <translation>Entrada predeterminada</translation>
    </message>
    <message>
        <source>No microphone found</source>
        <translation>No se ha encontrado ningún micrófono</translation>
    </message>
    <message>
        <source>Not connected; the default input is used</source>
        <translation>No conectada; se usa la entrada predeterminada</translation>
    </message>
    <message>
        <source>This computer&apos;s sound</source>
        <translation>Sonido de este ordenador</translation>
    </message>
    <message>
        <source>Whatever it plays, also for headphones</source>
        <translation>Todo lo que reproduce, también para auriculares</translation>
    </message>
    <message>
        <source>Not available now</source>
        <translation>No disponible ahora</translation>
    </message>
    <message>
        <source>Paused; choose an input to go on</source>
        <translation>En pausa; elige una entrada para continuar</translation>
    </message>
    <message>
        <source>No sound is coming in</source>
        <translation>No llega ningún sonido</translation>
    </message>
</context>
<context>
    <name>trackwise::KeyCommands</name>
    <message>
        <source>New Window</source>
        <translation>Nueva ventana</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>Select Song</source>
        <translation>Elegir canción</translation>
    </message>
    <message>
        <source>Select Song from Now Playing</source>
        <translation>Seleccionar la canción en reproducción</translation>
    </message>
    <message>
        <source>Clear Selected Song</source>
        <translation>Quitar la selección</translation>
    </message>
    <message>
        <source>Paste Link</source>
        <translation>Pegar enlace</translation>
    </message>
    <message>
        <source>Close Window</source>
        <translation>Cerrar ventana</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Archivo</translation>
    </message>
    <message>
        <source>Select Song from Music Recognition</source>
        <translation>Seleccionar canción con el reconocimiento de música</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Acerca de</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Ayuda</translation>
    </message>
</context>
<context>
    <name>trackwise::Launch</name>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>A new library can be made from your music folders. The old file is kept under another name; what only it knows, such as play counts, starts anew.</source>
        <translation>Se puede crear una biblioteca nueva a partir de sus carpetas de música. El archivo antiguo se conserva con otro nombre; lo que solo él contiene, como el número de reproducciones, empieza de cero.</translation>
    </message>
    <message>
        <source>New Library</source>
        <translation>Biblioteca nueva</translation>
    </message>
    <message>
        <source>Music Library Unreadable</source>
        <translation>No se puede leer la biblioteca musical</translation>
    </message>
    <message>
        <source>Show Demo</source>
        <translation>Mostrar la demostración</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>Ahora no</translation>
    </message>
    <message>
        <source>No Music Found</source>
        <translation>No se ha encontrado música</translation>
    </message>
    <message>
        <source>There are no songs in your music folder. Would you like to look around with a dozen demo songs?</source>
        <translation>No hay canciones en su carpeta de música. ¿Desea conocer Trackwise con una docena de canciones de demostración?</translation>
    </message>
    <message>
        <source>Don&apos;t Allow</source>
        <translation>No permitir</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>“Trackwise” would like to access the microphone</source>
        <translation>«Trackwise» quiere acceder al micrófono</translation>
    </message>
    <message>
        <source>It listens only while you look for a song by its sound. What is heard stays on this device and is not kept.</source>
        <translation>La aplicación solo escucha mientras busca una canción por su sonido. Lo que oye se queda en este dispositivo y no se guarda.</translation>
    </message>
</context>
<context>
    <name>trackwise::LibraryListModel</name>
    <message>
        <source>explicit</source>
        <translation>contenido explícito</translation>
    </message>
    <message>
        <source>file not available</source>
        <translation>archivo no disponible</translation>
    </message>
</context>
<context>
    <name>trackwise::LibraryRecognition</name>
    <message>
        <source>Microphone already in use</source>
        <translation>El micrófono ya está en uso</translation>
    </message>
    <message>
        <source>No microphone found</source>
        <translation>No se ha encontrado ningún micrófono</translation>
    </message>
    <message>
        <source>No sound on this device</source>
        <translation>No hay sonido en este dispositivo</translation>
    </message>
    <message>
        <source>Couldn&apos;t read known songs</source>
        <translation>No se han podido leer las canciones</translation>
    </message>
</context>
<context>
    <name>trackwise::LinkDrop</name>
    <message>
        <source>Song Not Found</source>
        <translation>Canción no encontrada</translation>
    </message>
    <message>
        <source>This doesn&apos;t seem to be an Apple Music song.</source>
        <translation>No parece ser una canción de Apple Music.</translation>
    </message>
    <message>
        <source>This doesn&apos;t seem to be a valid song.</source>
        <translation>No parece ser una canción válida.</translation>
    </message>
    <message>
        <source>Failed to Look Up Song</source>
        <translation>Error al buscar la canción</translation>
    </message>
    <message>
        <source>You can try to find it via Select Song.</source>
        <translation>Puede intentar encontrarla con «Elegir canción».</translation>
    </message>
    <message>
        <source>Failed to Load Song</source>
        <translation>Error al cargar la canción</translation>
    </message>
    <message>
        <source>Please check your internet connection and try again. Or you can find it via Select Song without an internet connection.</source>
        <translation>Compruebe su conexión a Internet e inténtelo de nuevo. Con «Elegir canción» también puede encontrarla sin conexión a Internet.</translation>
    </message>
    <message>
        <source>Couldn&apos;t Find Song</source>
        <translation>No se ha encontrado la canción</translation>
    </message>
    <message>
        <source>Songs do need to be added to your library to get their info. If this song isn&apos;t in your library, add it then try again.</source>
        <translation>Para obtener la información de las canciones, deben estar en su biblioteca. Si esta canción no está en ella, añádala e inténtelo de nuevo.</translation>
    </message>
</context>
<context>
    <name>trackwise::ListeningStatus</name>
    <message>
        <source>Listening to music: %1 of %2</source>
        <translation>Escuchando música: %1 de %2</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>En pausa</translation>
    </message>
    <message>
        <source>Paused: saving power</source>
        <translation>En pausa: ahorro de energía</translation>
    </message>
    <message>
        <source>So that it can be recognized</source>
        <translation>Para poder reconocerla</translation>
    </message>
    <message>
        <source>Go On Listening to Music</source>
        <translation>Seguir escuchando música</translation>
    </message>
    <message>
        <source>Pause Listening to Music</source>
        <translation>Pausar la escucha de música</translation>
    </message>
</context>
<context>
    <name>trackwise::MediaPicker</name>
    <message>
        <source>Select Song</source>
        <translation>Elegir canción</translation>
    </message>
    <message>
        <source>Artist or Album</source>
        <translation>Artista o álbum</translation>
    </message>
</context>
<context>
    <name>trackwise::MoreMenu</name>
    <message>
        <source>Now Playing</source>
        <translation>Lo que suena</translation>
    </message>
    <message>
        <source>Clear Selected Song</source>
        <translation>Quitar la selección</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
    <message>
        <source>Select Song from</source>
        <translation>Elegir canción de</translation>
    </message>
    <message>
        <source>Listening…</source>
        <translation>Escuchando…</translation>
    </message>
    <message>
        <source>Music Recognition</source>
        <translation>Reconocimiento de música</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Acerca de</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Ayuda</translation>
    </message>
</context>
<context>
    <name>trackwise::ScanStatus</name>
    <message>
        <source>Reading music: %1 of %2</source>
        <translation>Analizando la música: %1 de %2</translation>
    </message>
    <message>
        <source>Looking for music: %1 of %2 found</source>
        <translation>Buscando música: %1 de %2 encontradas</translation>
    </message>
</context>
<context>
    <name>trackwise::SettingsScreen</name>
    <message>
        <source>Music Access</source>
        <translation>Acceso a la música</translation>
    </message>
    <message>
        <source>Extra Small</source>
        <translation>Muy pequeño</translation>
    </message>
    <message>
        <source>Small</source>
        <translation>Pequeño</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>Mediano</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Estándar</translation>
    </message>
    <message>
        <source>Large</source>
        <translation>Grande</translation>
    </message>
    <message>
        <source>Extra Large</source>
        <translation>Muy grande</translation>
    </message>
    <message>
        <source>Largest of the Usual Sizes</source>
        <translation>El mayor de los tamaños habituales</translation>
    </message>
    <message>
        <source>Accessibility %1</source>
        <translation>Accesibilidad %1</translation>
    </message>
    <message>
        <source>Not available now</source>
        <translation>No disponible ahora</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
</context>
<context>
    <name>trackwise::SongPickerSource</name>
    <message>
        <source>Select Song</source>
        <translation>Elegir canción</translation>
    </message>
</context>
</TS>
