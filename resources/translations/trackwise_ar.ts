<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar_EG">
<context>
    <name>AboutButtons</name>
    <message>
        <source>More Apps</source>
        <translation>تطبيقات أخرى</translation>
    </message>
    <message>
        <source>Rate on App Store</source>
        <translation>التقييم في App Store</translation>
    </message>
    <message>
        <source>Privacy Policy</source>
        <translation>سياسة الخصوصية</translation>
    </message>
</context>
<context>
    <name>AboutIcon</name>
    <message>
        <source>App icon</source>
        <translation>أيقونة التطبيق</translation>
    </message>
</context>
<context>
    <name>AboutView</name>
    <message>
        <source>Close</source>
        <translation>إغلاق</translation>
    </message>
</context>
<context>
    <name>ArtworkTile</name>
    <message>
        <source>Album artwork</source>
        <translation>غلاف الألبوم</translation>
    </message>
    <message>
        <source>Album artwork, empty</source>
        <translation>غلاف الألبوم، فارغ</translation>
    </message>
</context>
<context>
    <name>ArtworkView</name>
    <message>
        <source>Explicit</source>
        <translation>محتوى صريح</translation>
    </message>
</context>
<context>
    <name>ContextMenu</name>
    <message>
        <source>Menu</source>
        <translation>القائمة</translation>
    </message>
</context>
<context>
    <name>CopyMenu</name>
    <message>
        <source>Copy</source>
        <translation>نسخ</translation>
    </message>
</context>
<context>
    <name>DetailAlerts</name>
    <message>
        <source>Open Music</source>
        <translation>فتح الموسيقى</translation>
    </message>
    <message>
        <source>Open Settings</source>
        <translation>فتح الإعدادات</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>إلغاء</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>موافق</translation>
    </message>
    <message>
        <source>Song Not Added to Library</source>
        <translation>الأغنية ليست في المكتبة</translation>
    </message>
    <message>
        <source>This song needs to be added to your Music Library to access its information. You can do this in the Music app.</source>
        <translation>يجب إضافة هذه الأغنية إلى مكتبتك الموسيقية لعرض معلوماتها. يمكنك فعل ذلك في تطبيق الموسيقى.</translation>
    </message>
    <message>
        <source>No Music Access</source>
        <translation>لا يوجد إذن للوصول إلى الموسيقى</translation>
    </message>
    <message>
        <source>Trackwise does not currently have access to your music library. Please turn on Media &amp; Apple Music access in the Settings app.</source>
        <translation>ليس لدى Trackwise حاليًا إذن للوصول إلى مكتبتك الموسيقية. يرجى تفعيل الوصول إلى الوسائط وApple Music في تطبيق الإعدادات.</translation>
    </message>
    <message>
        <source>Trackwise does not have access to your music library due to restrictions enabled on your device.</source>
        <translation>لا يمكن لـ Trackwise الوصول إلى مكتبتك الموسيقية بسبب القيود المفعّلة على جهازك.</translation>
    </message>
    <message>
        <source>No Song Playing</source>
        <translation>لا توجد أغنية قيد التشغيل</translation>
    </message>
    <message>
        <source>Would you like to play something?</source>
        <translation>هل تريد تشغيل شيء ما؟</translation>
    </message>
    <message>
        <source>No Microphone Access</source>
        <translation>لا يوجد إذن للوصول إلى الميكروفون</translation>
    </message>
    <message>
        <source>Trackwise does not currently have access to your microphone. Please turn on Microphone access in the Settings app.</source>
        <translation>ليس لدى Trackwise حاليًا إذن للوصول إلى الميكروفون. يرجى تفعيل الوصول إلى الميكروفون في تطبيق الإعدادات.</translation>
    </message>
</context>
<context>
    <name>DetailView</name>
    <message>
        <source>Select Song</source>
        <translation>اختيار أغنية</translation>
    </message>
    <message>
        <source>More</source>
        <translation>المزيد</translation>
    </message>
    <message>
        <source>No Song Selected</source>
        <translation>لم يتم اختيار أغنية</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Copy</source>
        <translation>نسخ</translation>
    </message>
</context>
<context>
    <name>EmptyStateView</name>
    <message>
        <source>Choose Folder…</source>
        <translation>اختيار مجلد…</translation>
    </message>
</context>
<context>
    <name>FolderList</name>
    <message>
        <source>Remove %1</source>
        <translation>إزالة %1</translation>
    </message>
</context>
<context>
    <name>HelpView</name>
    <message>
        <source>Help</source>
        <translation>المساعدة</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>تم</translation>
    </message>
    <message>
        <source>App</source>
        <translation>التطبيق</translation>
    </message>
    <message>
        <source>Select any song from your music library in the Trackwise app to view its information. This works with songs you&apos;ve added to your library via Apple Music as well as purchased, matched, uploaded, and synced songs. Note that songs on Apple Music that haven&apos;t been added to your library cannot be accessed.</source>
        <translation>اختر أي أغنية من مكتبتك الموسيقية في تطبيق Trackwise لعرض معلوماتها. ينطبق ذلك على الأغاني التي أضفتها إلى مكتبتك عبر Apple Music وعلى الأغاني المشتراة والمطابَقة والمحمّلة والمتزامنة. لاحظ أنه لا يمكن الوصول إلى أغاني Apple Music التي لم تُضَف إلى مكتبتك.</translation>
    </message>
    <message>
        <source>Share Sheet Action</source>
        <translation>إجراء ورقة المشاركة</translation>
    </message>
    <message>
        <source>Share a song in the Music app to view its information right from the share sheet. I recommend adding Get Trackwise to your favorites via Edit Actions so it&apos;s easily accessible in the top section. Note that the Music app does not have a share button for songs not available on Apple Music.</source>
        <translation>شارك أغنية في تطبيق الموسيقى لعرض معلوماتها مباشرة من ورقة المشاركة. أنصحك بإضافة «Get Trackwise» إلى المفضلة عبر «تعديل الإجراءات» ليسهل الوصول إليها في القسم العلوي. لاحظ أن تطبيق الموسيقى لا يعرض زر المشاركة للأغاني غير المتوفرة على Apple Music.</translation>
    </message>
    <message>
        <source>The action extension will try to look up the song in your library. This may require an internet connection and it&apos;s possible it may not be able to find the right song, for example, if you&apos;ve renamed that song. If an error occurs, you can use the app to view its information even without an internet connection.</source>
        <translation>سيحاول ملحق الإجراء العثور على الأغنية في مكتبتك. قد يتطلب ذلك اتصالًا بالإنترنت، وقد لا يعثر على الأغنية الصحيحة، مثلًا إذا كنت قد أعدت تسميتها. إذا حدث خطأ، فيمكنك استخدام التطبيق لعرض معلوماتها حتى دون اتصال بالإنترنت.</translation>
    </message>
    <message>
        <source>Contact Support</source>
        <translation>التواصل مع الدعم</translation>
    </message>
    <message>
        <source>Reach out if you have any questions or feedback!</source>
        <translation>تواصل معي إذا كانت لديك أي أسئلة أو ملاحظات!</translation>
    </message>
    <message>
        <source>Email the Developer</source>
        <translation>مراسلة المطوّر</translation>
    </message>
</context>
<context>
    <name>InformationHeader</name>
    <message>
        <source>Information</source>
        <translation>المعلومات</translation>
    </message>
    <message>
        <source>Show Less</source>
        <translation>عرض أقل</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation>عرض المزيد</translation>
    </message>
</context>
<context>
    <name>LibraryAccessView</name>
    <message>
        <source>“Trackwise” would like to access your music library</source>
        <translation>يريد «Trackwise» الوصول إلى مكتبتك الموسيقية</translation>
    </message>
    <message>
        <source>It shows what your library knows about a song. It reads the music in these folders and never changes it.</source>
        <translation>يعرض ما تعرفه مكتبتك عن الأغنية. يقرأ الموسيقى في هذه المجلدات ولا يغيّرها أبدًا.</translation>
    </message>
    <message>
        <source>Choose Another Folder…</source>
        <translation>اختيار مجلد آخر…</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>موافق</translation>
    </message>
    <message>
        <source>Don&apos;t Allow</source>
        <translation>عدم السماح</translation>
    </message>
</context>
<context>
    <name>LyricsView</name>
    <message>
        <source>Lyrics</source>
        <translation>كلمات الأغنية</translation>
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
        <translation>شريط القوائم</translation>
    </message>
</context>
<context>
    <name>MicrophoneSection</name>
    <message>
        <source>Microphone</source>
        <translation>الميكروفون</translation>
    </message>
    <message>
        <source>Microphone access</source>
        <translation>الوصول إلى الميكروفون</translation>
    </message>
    <message>
        <source>For recognizing the music around you. What is heard stays on this device.</source>
        <translation>للتعرف على الموسيقى من حولك. ما يُسمع يبقى على هذا الجهاز.</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>الإدخال</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>المستوى</translation>
    </message>
</context>
<context>
    <name>MusicAppLink</name>
    <message>
        <source>Open Music app</source>
        <translation>فتح تطبيق الموسيقى</translation>
    </message>
</context>
<context>
    <name>PickerPages</name>
    <message>
        <source>Search Results</source>
        <translation>نتائج البحث</translation>
    </message>
</context>
<context>
    <name>PickerTabs</name>
    <message>
        <source>Lists</source>
        <translation>القوائم</translation>
    </message>
    <message>
        <source>Songs</source>
        <translation>الأغاني</translation>
    </message>
    <message>
        <source>Artists</source>
        <translation>الفنانون</translation>
    </message>
    <message>
        <source>Albums</source>
        <translation>الألبومات</translation>
    </message>
    <message>
        <source>Recently Added</source>
        <translation>المضافة حديثًا</translation>
    </message>
</context>
<context>
    <name>PickerTitleBar</name>
    <message>
        <source>Back</source>
        <translation>رجوع</translation>
    </message>
    <message>
        <source>Scan Again</source>
        <translation>الفحص مجددًا</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>إلغاء</translation>
    </message>
</context>
<context>
    <name>PlaybackRow</name>
    <message>
        <source>NOW PLAYING</source>
        <translation>قيد التشغيل الآن</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>إيقاف مؤقت</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>تشغيل</translation>
    </message>
</context>
<context>
    <name>PushedView</name>
    <message>
        <source>Back</source>
        <translation>رجوع</translation>
    </message>
</context>
<context>
    <name>QGuiApplication</name>
    <message>
        <source>QT_LAYOUT_DIRECTION</source>
        <translation>RTL</translation>
    </message>
</context>
<context>
    <name>Recognition</name>
    <message>
        <source>Listening</source>
        <translation>جارٍ الاستماع</translation>
    </message>
    <message>
        <source>Microphone already in use</source>
        <translation>الميكروفون قيد الاستخدام بالفعل</translation>
    </message>
    <message>
        <source>Song Identified</source>
        <translation>تم التعرّف على الأغنية</translation>
    </message>
    <message>
        <source>Song identified</source>
        <translation>تم التعرّف على الأغنية</translation>
    </message>
    <message>
        <source>Song Not Found</source>
        <translation>لم يُعثر على الأغنية</translation>
    </message>
    <message>
        <source>Couldn&apos;t find in your library</source>
        <translation>تعذّر العثور عليها في مكتبتك</translation>
    </message>
    <message>
        <source>Song not found, couldn&apos;t find in your library</source>
        <translation>لم يُعثر على الأغنية، تعذّر العثور عليها في مكتبتك</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>خطأ</translation>
    </message>
    <message>
        <source>Error occurred, %1</source>
        <translation>حدث خطأ، %1</translation>
    </message>
    <message>
        <source>Music Recognition</source>
        <translation>التعرّف على الموسيقى</translation>
    </message>
    <message>
        <source>Listening…</source>
        <translation>جارٍ الاستماع…</translation>
    </message>
    <message>
        <source>No Result</source>
        <translation>لا توجد نتيجة</translation>
    </message>
    <message>
        <source>Couldn&apos;t identify song</source>
        <translation>تعذّر التعرّف على الأغنية</translation>
    </message>
    <message>
        <source>No result, couldn&apos;t identify song</source>
        <translation>لا توجد نتيجة، تعذّر التعرّف على الأغنية</translation>
    </message>
    <message>
        <source>Song identified, %1 by %2</source>
        <translation>تم التعرّف على الأغنية، %1 لـ %2</translation>
    </message>
    <message>
        <source>Not Found in Your Library</source>
        <translation>غير موجودة في مكتبتك</translation>
    </message>
    <message>
        <source>No sound is coming in</source>
        <translation>لا يصل أي صوت</translation>
    </message>
</context>
<context>
    <name>RecognitionSection</name>
    <message>
        <source>Music Recognition</source>
        <translation>التعرّف على الموسيقى</translation>
    </message>
    <message>
        <source>Get to know songs by ear</source>
        <translation>التعرّف على الأغاني بالسماع</translation>
    </message>
    <message>
        <source>Begin Anew</source>
        <translation>البدء من جديد</translation>
    </message>
    <message>
        <source>Forget All Songs</source>
        <translation>نسيان كل الأغاني</translation>
    </message>
</context>
<context>
    <name>ReviewCard</name>
    <message>
        <source>Do you like Trackwise?</source>
        <translation>هل يعجبك Trackwise؟</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>ليس الآن</translation>
    </message>
    <message>
        <source>Write a Review</source>
        <translation>كتابة مراجعة</translation>
    </message>
</context>
<context>
    <name>SearchField</name>
    <message>
        <source>Search Songs</source>
        <translation>البحث عن أغانٍ</translation>
    </message>
    <message>
        <source>Clear Search</source>
        <translation>مسح البحث</translation>
    </message>
</context>
<context>
    <name>SectionIndex</name>
    <message>
        <source>Letters</source>
        <translation>الحروف</translation>
    </message>
</context>
<context>
    <name>SettingsView</name>
    <message>
        <source>Settings</source>
        <translation>الإعدادات</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>تلقائي</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>فاتح</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>داكن</translation>
    </message>
    <message>
        <source>Reduced</source>
        <translation>مخفّضة</translation>
    </message>
    <message>
        <source>Full</source>
        <translation>كاملة</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>تم</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>الموسيقى</translation>
    </message>
    <message>
        <source>Music access</source>
        <translation>الوصول إلى الموسيقى</translation>
    </message>
    <message>
        <source>The system does not let Trackwise read your music folders.</source>
        <translation>لا يسمح النظام لـ Trackwise بقراءة مجلدات الموسيقى.</translation>
    </message>
    <message>
        <source>Trackwise reads your music and never changes it.</source>
        <translation>يقرأ Trackwise موسيقاك ولا يغيّرها أبدًا.</translation>
    </message>
    <message>
        <source>Add Music Folder…</source>
        <translation>إضافة مجلد موسيقى…</translation>
    </message>
    <message>
        <source>Scan Again</source>
        <translation>الفحص مجددًا</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>المظهر</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>السمة</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation>الحركة</translation>
    </message>
    <message>
        <source>Reduced motion fades where it would slide.</source>
        <translation>تستبدل الحركة المخفّضة الانزلاق بالتلاشي.</translation>
    </message>
    <message>
        <source>Text size of the desktop</source>
        <translation>حجم نص سطح المكتب</translation>
    </message>
    <message>
        <source>Players to Ignore</source>
        <translation>المشغّلات المتجاهلة</translation>
    </message>
    <message>
        <source>Other players are listed here while they run.</source>
        <translation>تظهر المشغّلات الأخرى هنا أثناء تشغيلها.</translation>
    </message>
    <message>
        <source>Ignore %1</source>
        <translation>تجاهل %1</translation>
    </message>
    <message>
        <source>Show menu bar</source>
        <translation>إظهار شريط القوائم</translation>
    </message>
    <message>
        <source>Otherwise Alt or F10 shows it.</source>
        <translation>وإلا فيظهره Alt أو F10.</translation>
    </message>
</context>
<context>
    <name>SongPicker</name>
    <message>
        <source>No Results</source>
        <translation>لا توجد نتائج</translation>
    </message>
    <message>
        <source>No song matches “%1”.</source>
        <translation>لا توجد أغنية تطابق «%1».</translation>
    </message>
    <message>
        <source>Looking for Music</source>
        <translation>جارٍ البحث عن الموسيقى</translation>
    </message>
    <message>
        <source>Songs appear here as soon as they have been read.</source>
        <translation>تظهر الأغاني هنا بمجرد قراءتها.</translation>
    </message>
    <message>
        <source>No Music Found</source>
        <translation>لم يُعثر على موسيقى</translation>
    </message>
    <message>
        <source>Add songs to your music folder, or choose the folder in which your music is.</source>
        <translation>أضف أغاني إلى مجلد الموسيقى، أو اختر المجلد الذي توجد فيه موسيقاك.</translation>
    </message>
    <message>
        <source>Unknown Artist</source>
        <translation>فنان غير معروف</translation>
    </message>
    <message>
        <source>Unknown Title</source>
        <translation>عنوان غير معروف</translation>
    </message>
    <message numerus="yes">
        <source>%Ln song</source>
        <translation>
            <numerusform>لا أغانٍ</numerusform>
            <numerusform>أغنية واحدة</numerusform>
            <numerusform>أغنيتان</numerusform>
            <numerusform>%Ln أغانٍ</numerusform>
            <numerusform>%Ln أغنية</numerusform>
            <numerusform>%Ln أغنية</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs</source>
        <translation>
            <numerusform>لا أغانٍ</numerusform>
            <numerusform>أغنية واحدة</numerusform>
            <numerusform>أغنيتان</numerusform>
            <numerusform>%Ln أغانٍ</numerusform>
            <numerusform>%Ln أغنية</numerusform>
            <numerusform>%Ln أغنية</numerusform>
        </translation>
    </message>
    <message>
        <source>Unknown Album</source>
        <translation>ألبوم غير معروف</translation>
    </message>
</context>
<context>
    <name>SongPickerView</name>
    <message>
        <source>Stop Reading Music</source>
        <translation>إيقاف قراءة الموسيقى</translation>
    </message>
</context>
<context>
    <name>TextSizeSlider</name>
    <message>
        <source>Text size</source>
        <translation>حجم النص</translation>
    </message>
</context>
<context>
    <name>trackwise::AboutView</name>
    <message>
        <source>Version %1</source>
        <translation>الإصدار %1</translation>
    </message>
</context>
<context>
    <name>trackwise::AddressOpening</name>
    <message>
        <source>Song Not Found</source>
        <translation>لم يُعثر على الأغنية</translation>
    </message>
    <message>
        <source>There is no song “%1” in your music library. Music folders are chosen in the settings.</source>
        <translation>لا توجد أغنية «%1» في مكتبتك الموسيقية. تُختار مجلدات الموسيقى في الإعدادات.</translation>
    </message>
    <message>
        <source>There is no file “%1”.</source>
        <translation>لا يوجد ملف «%1».</translation>
    </message>
</context>
<context>
    <name>trackwise::CopyableRow</name>
    <message>
        <source>Copy</source>
        <translation>نسخ</translation>
    </message>
</context>
<context>
    <name>trackwise::DetailViewController</name>
    <message>
        <source>Lyrics</source>
        <translation>كلمات الأغنية</translation>
    </message>
</context>
<context>
    <name>trackwise::IndexStatus</name>
    <message>
        <source>%1 of %2 songs can be recognized (%3)</source>
        <translation>يمكن التعرّف على %1 من %2 من الأغاني (%3)</translation>
    </message>
    <message>
        <source>Listening to music: %1 left</source>
        <translation>جارٍ الاستماع إلى الموسيقى: بقي %1</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>متوقف مؤقتًا</translation>
    </message>
    <message>
        <source>Paused: saving power</source>
        <translation>متوقف مؤقتًا: توفير الطاقة</translation>
    </message>
    <message>
        <source>Not possible at the moment</source>
        <translation>غير ممكن حاليًا</translation>
    </message>
    <message>
        <source>What was not recognized just now may be among the songs that are left.</source>
        <translation>قد يكون ما لم يُتعرَّف عليه الآن ضمن الأغاني المتبقية.</translation>
    </message>
</context>
<context>
    <name>trackwise::InputSettings</name>
    <message>
        <source>Default input</source>
        <translation>الإدخال الافتراضي</translation>
    </message>
    <message>
        <source>No microphone found</source>
        <translation>لم يُعثر على ميكروفون</translation>
    </message>
    <message>
        <source>Not connected; the default input is used</source>
        <translation>غير متصل؛ يُستخدم الإدخال الافتراضي</translation>
    </message>
    <message>
        <source>This computer&apos;s sound</source>
        <translation>صوت هذا الحاسوب</translation>
    </message>
    <message>
        <source>Whatever it plays, also for headphones</source>
        <translation>كل ما يشغّله، وإن كان لسماعات الرأس</translation>
    </message>
    <message>
        <source>Not available now</source>
        <translation>غير متوفر حاليًا</translation>
    </message>
    <message>
        <source>Paused; choose an input to go on</source>
        <translation>متوقف مؤقتًا؛ اختر إدخالًا للمتابعة</translation>
    </message>
    <message>
        <source>No sound is coming in</source>
        <translation>لا يصل أي صوت</translation>
    </message>
</context>
<context>
    <name>trackwise::KeyCommands</name>
    <message>
        <source>New Window</source>
        <translation>نافذة جديدة</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>الإعدادات</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>إنهاء</translation>
    </message>
    <message>
        <source>Select Song</source>
        <translation>اختيار أغنية</translation>
    </message>
    <message>
        <source>Select Song from Now Playing</source>
        <translation>اختيار الأغنية قيد التشغيل الآن</translation>
    </message>
    <message>
        <source>Clear Selected Song</source>
        <translation>إلغاء اختيار الأغنية</translation>
    </message>
    <message>
        <source>Paste Link</source>
        <translation>لصق الرابط</translation>
    </message>
    <message>
        <source>Close Window</source>
        <translation>إغلاق النافذة</translation>
    </message>
    <message>
        <source>File</source>
        <translation>ملف</translation>
    </message>
    <message>
        <source>Select Song from Music Recognition</source>
        <translation>اختيار أغنية بالتعرف على الموسيقى</translation>
    </message>
    <message>
        <source>About</source>
        <translation>حول</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>المساعدة</translation>
    </message>
</context>
<context>
    <name>trackwise::Launch</name>
    <message>
        <source>Show Demo</source>
        <translation>عرض الأغاني التجريبية</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>ليس الآن</translation>
    </message>
    <message>
        <source>No Music Found</source>
        <translation>لم يُعثر على موسيقى</translation>
    </message>
    <message>
        <source>There are no songs in your music folder. Would you like to look around with a dozen demo songs?</source>
        <translation>لا توجد أغانٍ في مجلد الموسيقى. هل تريد التجول مع اثنتي عشرة أغنية تجريبية؟</translation>
    </message>
    <message>
        <source>Music Library Unreadable</source>
        <translation>تتعذّر قراءة مكتبة الموسيقى</translation>
    </message>
    <message>
        <source>A new library can be made from your music folders. The old file is kept under another name; what only it knows, such as play counts, starts anew.</source>
        <translation>يمكن إنشاء مكتبة جديدة من مجلدات الموسيقى لديك. يُحتفظ بالملف القديم باسم آخر، وما لا يعرفه سواه، مثل عدد مرات الاستماع، يبدأ من جديد.</translation>
    </message>
    <message>
        <source>New Library</source>
        <translation>مكتبة جديدة</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>إلغاء</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>إنهاء</translation>
    </message>
    <message>
        <source>Don&apos;t Allow</source>
        <translation>عدم السماح</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>موافق</translation>
    </message>
    <message>
        <source>“Trackwise” would like to access the microphone</source>
        <translation>يريد «Trackwise» الوصول إلى الميكروفون</translation>
    </message>
    <message>
        <source>It listens only while you look for a song by its sound. What is heard stays on this device and is not kept.</source>
        <translation>يستمع فقط أثناء بحثك عن أغنية بصوتها. ما يُسمع يبقى على هذا الجهاز ولا يُحفظ.</translation>
    </message>
</context>
<context>
    <name>trackwise::LibraryListModel</name>
    <message>
        <source>explicit</source>
        <translation>محتوى صريح</translation>
    </message>
    <message>
        <source>file not available</source>
        <translation>الملف غير متوفر</translation>
    </message>
</context>
<context>
    <name>trackwise::LibraryRecognition</name>
    <message>
        <source>Microphone already in use</source>
        <translation>الميكروفون قيد الاستخدام بالفعل</translation>
    </message>
    <message>
        <source>No microphone found</source>
        <translation>لم يُعثر على ميكروفون</translation>
    </message>
    <message>
        <source>No sound on this device</source>
        <translation>لا يوجد صوت على هذا الجهاز</translation>
    </message>
    <message>
        <source>Couldn&apos;t read known songs</source>
        <translation>تعذّرت قراءة الأغاني المعروفة</translation>
    </message>
</context>
<context>
    <name>trackwise::LinkDrop</name>
    <message>
        <source>Song Not Found</source>
        <translation>لم يُعثر على الأغنية</translation>
    </message>
    <message>
        <source>This doesn&apos;t seem to be an Apple Music song.</source>
        <translation>لا يبدو أن هذه أغنية من Apple Music.</translation>
    </message>
    <message>
        <source>This doesn&apos;t seem to be a valid song.</source>
        <translation>لا يبدو أن هذه أغنية صالحة.</translation>
    </message>
    <message>
        <source>Failed to Look Up Song</source>
        <translation>تعذّر البحث عن الأغنية</translation>
    </message>
    <message>
        <source>You can try to find it via Select Song.</source>
        <translation>يمكنك محاولة العثور عليها عبر «اختيار أغنية».</translation>
    </message>
    <message>
        <source>Failed to Load Song</source>
        <translation>تعذّر تحميل الأغنية</translation>
    </message>
    <message>
        <source>Please check your internet connection and try again. Or you can find it via Select Song without an internet connection.</source>
        <translation>يرجى التحقق من اتصالك بالإنترنت والمحاولة مرة أخرى. أو يمكنك العثور عليها عبر «اختيار أغنية» دون اتصال بالإنترنت.</translation>
    </message>
    <message>
        <source>Couldn&apos;t Find Song</source>
        <translation>تعذّر العثور على الأغنية</translation>
    </message>
    <message>
        <source>Songs do need to be added to your library to get their info. If this song isn&apos;t in your library, add it then try again.</source>
        <translation>يجب إضافة الأغاني إلى مكتبتك للحصول على معلوماتها. إذا لم تكن هذه الأغنية في مكتبتك، فأضفها ثم حاول مرة أخرى.</translation>
    </message>
</context>
<context>
    <name>trackwise::ListeningStatus</name>
    <message>
        <source>Listening to music: %1 of %2</source>
        <translation>جارٍ الاستماع إلى الموسيقى: %1 من %2</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>متوقف مؤقتًا</translation>
    </message>
    <message>
        <source>Paused: saving power</source>
        <translation>متوقف مؤقتًا: توفير الطاقة</translation>
    </message>
    <message>
        <source>So that it can be recognized</source>
        <translation>لكي يمكن التعرّف عليها</translation>
    </message>
    <message>
        <source>Go On Listening to Music</source>
        <translation>متابعة الاستماع إلى الموسيقى</translation>
    </message>
    <message>
        <source>Pause Listening to Music</source>
        <translation>إيقاف الاستماع إلى الموسيقى مؤقتًا</translation>
    </message>
</context>
<context>
    <name>trackwise::MediaPicker</name>
    <message>
        <source>Select Song</source>
        <translation>اختيار أغنية</translation>
    </message>
    <message>
        <source>Artist or Album</source>
        <translation>فنان أو ألبوم</translation>
    </message>
</context>
<context>
    <name>trackwise::MoreMenu</name>
    <message>
        <source>Now Playing</source>
        <translation>قيد التشغيل الآن</translation>
    </message>
    <message>
        <source>Clear Selected Song</source>
        <translation>إلغاء اختيار الأغنية</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>الإعدادات</translation>
    </message>
    <message>
        <source>Select Song from</source>
        <translation>اختيار أغنية من</translation>
    </message>
    <message>
        <source>Listening…</source>
        <translation>جارٍ الاستماع…</translation>
    </message>
    <message>
        <source>Music Recognition</source>
        <translation>التعرّف على الموسيقى</translation>
    </message>
    <message>
        <source>About</source>
        <translation>حول</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>المساعدة</translation>
    </message>
</context>
<context>
    <name>trackwise::ScanStatus</name>
    <message>
        <source>Reading music: %1 of %2</source>
        <translation>قراءة الموسيقى: %1 من %2</translation>
    </message>
    <message>
        <source>Looking for music: %1 of %2 found</source>
        <translation>البحث عن الموسيقى: %1 من %2 عُثر عليها</translation>
    </message>
</context>
<context>
    <name>trackwise::SettingsScreen</name>
    <message>
        <source>Music Access</source>
        <translation>الوصول إلى الموسيقى</translation>
    </message>
    <message>
        <source>Extra Small</source>
        <translation>صغير جدًا</translation>
    </message>
    <message>
        <source>Small</source>
        <translation>صغير</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>متوسط</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>قياسي</translation>
    </message>
    <message>
        <source>Large</source>
        <translation>كبير</translation>
    </message>
    <message>
        <source>Extra Large</source>
        <translation>كبير جدًا</translation>
    </message>
    <message>
        <source>Largest of the Usual Sizes</source>
        <translation>أكبر الأحجام المعتادة</translation>
    </message>
    <message>
        <source>Accessibility %1</source>
        <translation>تسهيلات الاستخدام %1</translation>
    </message>
    <message>
        <source>Not available now</source>
        <translation>غير متوفر حاليًا</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>الإعدادات</translation>
    </message>
</context>
<context>
    <name>trackwise::SongPickerSource</name>
    <message>
        <source>Select Song</source>
        <translation>اختيار أغنية</translation>
    </message>
</context>
</TS>
