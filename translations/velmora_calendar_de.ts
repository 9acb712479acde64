<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>VelmoraCalendar</name>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Appearance, captions, selectors and dates</source>
        <translation>Darstellung, Beschriftungen, Auswahlelemente und Datumsangaben</translation>
    </message>
    <message>
        <source>&amp;Appearance:</source>
        <translation>&amp;Darstellung:</translation>
    </message>
    <message>
        <source>&amp;Week day captions:</source>
        <translation>&amp;Wochentagsnamen:</translation>
    </message>
    <message>
        <source>Show week&amp;end</source>
        <translation>Wochen&amp;ende anzeigen</translation>
    </message>
    <message>
        <source>Week day a&amp;lignment:</source>
        <translation>A&amp;usrichtung der Wochentage:</translation>
    </message>
    <message>
        <source>Wee&amp;k day appearance:</source>
        <translation>Darstellun&amp;g der Wochentage:</translation>
    </message>
    <message>
        <source>&amp;Month caption:</source>
        <translation>&amp;Monatsname:</translation>
    </message>
    <message>
        <source>M&amp;onth appearance:</source>
        <translation>Darstellung des M&amp;onats:</translation>
    </message>
    <message>
        <source>Month and year &amp;selectors:</source>
        <translation>Monats- und &amp;Jahresauswahl:</translation>
    </message>
    <message>
        <source>Ea&amp;rliest date:</source>
        <translation>&amp;Frühestes Datum:</translation>
    </message>
    <message>
        <source>La&amp;test date:</source>
        <translation>&amp;Spätestes Datum:</translation>
    </message>
    <message>
        <source>&amp;Date:</source>
        <translation>Da&amp;tum:</translation>
    </message>
    <message>
        <source>Date &amp;format:</source>
        <translation>Datumsfo&amp;rmat:</translation>
    </message>
    <message>
        <source>Drop-down</source>
        <translation>Ausklappkalender</translation>
    </message>
    <message>
        <source>The enabled state and the size of the drop-down</source>
        <translation>Ob das Feld aktiviert ist, und die Größe des Ausklappkalenders</translation>
    </message>
    <message>
        <source>&amp;Enabled</source>
        <translation>&amp;Aktiviert</translation>
    </message>
    <message>
        <source>Drop-down &amp;width:</source>
        <translation>&amp;Breite des Kalenders:</translation>
    </message>
    <message>
        <source>Drop-down &amp;height:</source>
        <translation>&amp;Höhe des Kalenders:</translation>
    </message>
    <message>
        <source>Days</source>
        <translation>Tage</translation>
    </message>
    <message>
        <source>The look of the days and the first day of the week</source>
        <translation>Das Aussehen der Tage und der erste Tag der Woche</translation>
    </message>
    <message>
        <source>&amp;First day of the week:</source>
        <translation>&amp;Erster Tag der Woche:</translation>
    </message>
    <message>
        <source>&amp;Number alignment:</source>
        <translation>Ausrichtung der &amp;Zahl:</translation>
    </message>
    <message>
        <source>&amp;Caption alignment:</source>
        <translation>Ausrichtung der &amp;Beschriftung:</translation>
    </message>
    <message>
        <source>&amp;Picture alignment:</source>
        <translation>Ausrichtung des B&amp;ildes:</translation>
    </message>
    <message>
        <source>Colors and fonts</source>
        <translation>Farben und Schriften</translation>
    </message>
    <message>
        <source>The colors and fonts of all parts</source>
        <translation>Die Farben und Schriften aller Teile</translation>
    </message>
    <message>
        <source>&amp;Day background:</source>
        <translation>&amp;Hintergrund der Tage:</translation>
    </message>
    <message>
        <source>Day &amp;text:</source>
        <translation>&amp;Text der Tage:</translation>
    </message>
    <message>
        <source>&amp;Other months' days:</source>
        <translation>Tage &amp;anderer Monate:</translation>
    </message>
    <message>
        <source>&amp;Selected background:</source>
        <translation>Hintergrund der Aus&amp;wahl:</translation>
    </message>
    <message>
        <source>S&amp;elected text:</source>
        <translation>Te&amp;xt der Auswahl:</translation>
    </message>
    <message>
        <source>Tod&amp;ay background:</source>
        <translation>Hinter&amp;grund von heute:</translation>
    </message>
    <message>
        <source>Today te&amp;xt:</source>
        <translation>Text von h&amp;eute:</translation>
    </message>
    <message>
        <source>&amp;Month background:</source>
        <translation>Hintergrund des &amp;Monats:</translation>
    </message>
    <message>
        <source>Mo&amp;nth text:</source>
        <translation>Text des M&amp;onats:</translation>
    </message>
    <message>
        <source>&amp;Week day background:</source>
        <translation>Hintergr&amp;und der Wochentage:</translation>
    </message>
    <message>
        <source>Wee&amp;k day text:</source>
        <translation>Text der Wo&amp;chentage:</translation>
    </message>
    <message>
        <source>Day &amp;font:</source>
        <translation>&amp;Schrift der Tage:</translation>
    </message>
    <message>
        <source>Mont&amp;h font:</source>
        <translation>Schr&amp;ift des Monats:</translation>
    </message>
    <message>
        <source>Week da&amp;y font:</source>
        <translation>Sch&amp;rift der Wochentage:</translation>
    </message>
    <message>
        <source>Date &amp;box font:</source>
        <translation>Schrift des &amp;Datumsfelds:</translation>
    </message>
    <message>
        <source>VmAppearanceFlat</source>
        <translation>Flach</translation>
    </message>
    <message>
        <source>VmAppearance3D</source>
        <translation>Räumlich</translation>
    </message>
    <message>
        <source>VmTextTopLeft</source>
        <translation>Oben links</translation>
    </message>
    <message>
        <source>VmTextMiddleLeft</source>
        <translation>Mitte links</translation>
    </message>
    <message>
        <source>VmTextBottomLeft</source>
        <translation>Unten links</translation>
    </message>
    <message>
        <source>VmTextTopCenter</source>
        <translation>Oben</translation>
    </message>
    <message>
        <source>VmTextMiddleCenter</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>VmTextBottomCenter</source>
        <translation>Unten</translation>
    </message>
    <message>
        <source>VmTextTopRight</source>
        <translation>Oben rechts</translation>
    </message>
    <message>
        <source>VmTextMiddleRight</source>
        <translation>Mitte rechts</translation>
    </message>
    <message>
        <source>VmTextBottomRight</source>
        <translation>Unten rechts</translation>
    </message>
    <message>
        <source>VmPictTopLeft</source>
        <translation>Oben links</translation>
    </message>
    <message>
        <source>VmPictMiddleLeft</source>
        <translation>Mitte links</translation>
    </message>
    <message>
        <source>VmPictBottomLeft</source>
        <translation>Unten links</translation>
    </message>
    <message>
        <source>VmPictTopCenter</source>
        <translation>Oben</translation>
    </message>
    <message>
        <source>VmPictMiddleCenter</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>VmPictBottomCenter</source>
        <translation>Unten</translation>
    </message>
    <message>
        <source>VmPictTopRight</source>
        <translation>Oben rechts</translation>
    </message>
    <message>
        <source>VmPictMiddleRight</source>
        <translation>Mitte rechts</translation>
    </message>
    <message>
        <source>VmPictBottomRight</source>
        <translation>Unten rechts</translation>
    </message>
    <message>
        <source>VmPictStretch</source>
        <translation>Gestreckt</translation>
    </message>
    <message>
        <source>VmPictTile</source>
        <translation>Gekachelt</translation>
    </message>
    <message>
        <source>VmPictLeftOfText</source>
        <translation>Links vom Text</translation>
    </message>
    <message>
        <source>VmPictRightOfText</source>
        <translation>Rechts vom Text</translation>
    </message>
    <message>
        <source>VmPictAboveText</source>
        <translation>Über dem Text</translation>
    </message>
    <message>
        <source>VmPictBelowText</source>
        <translation>Unter dem Text</translation>
    </message>
    <message>
        <source>VmSunday</source>
        <translation>Sonntag</translation>
    </message>
    <message>
        <source>VmMonday</source>
        <translation>Montag</translation>
    </message>
    <message>
        <source>VmTuesday</source>
        <translation>Dienstag</translation>
    </message>
    <message>
        <source>VmWednesday</source>
        <translation>Mittwoch</translation>
    </message>
    <message>
        <source>VmThursday</source>
        <translation>Donnerstag</translation>
    </message>
    <message>
        <source>VmFriday</source>
        <translation>Freitag</translation>
    </message>
    <message>
        <source>VmSaturday</source>
        <translation>Samstag</translation>
    </message>
    <message>
        <source>VmWeekdayNone</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>VmWeekDayFullName</source>
        <translation>Voller Name</translation>
    </message>
    <message>
        <source>VmWeekDayAbbrName</source>
        <translation>Abgekürzt</translation>
    </message>
    <message>
        <source>VmWeekDayLetter</source>
        <translation>Erster Buchstabe</translation>
    </message>
    <message>
        <source>VmMonthFullName</source>
        <translation>Voller Name</translation>
    </message>
    <message>
        <source>VmMonthAbbrName</source>
        <translation>Abgekürzt</translation>
    </message>
    <message>
        <source>VmMonthSelNone</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>VmMonthSelArrows</source>
        <translation>Pfeile</translation>
    </message>
    <message>
        <source>VmMonthSelCombo</source>
        <translation>Monatsliste und Jahresfeld</translation>
    </message>
    <message>
        <source>VmMonthSelScrollbar</source>
        <translation>Bildlaufleiste</translation>
    </message>
    <message>
        <source>Property '%1' cannot be blank</source>
        <translation>Die Eigenschaft „%1“ darf nicht leer sein</translation>
    </message>
    <message>
        <source>Property 'DropDownWidth' must a number.</source>
        <translation>Die Größe des Kalenders muss eine Zahl sein.</translation>
    </message>
    <message>
        <source>Invalid Date Format%1</source>
        <translation>Ungültiges Datumsformat: %1</translation>
    </message>
    <message>
        <source>Invalid procedure call or argument</source>
        <translation>Ungültiger Aufruf oder ungültiges Argument</translation>
    </message>
    <message>
        <source>Overflow</source>
        <translation>Überlauf</translation>
    </message>
    <message>
        <source>Type mismatch</source>
        <translation>Typen passen nicht zueinander</translation>
    </message>
    <message>
        <source>Invalid property value</source>
        <translation>Ungültiger Wert der Eigenschaft</translation>
    </message>
    <message>
        <source>Subscript out of range</source>
        <translation>Index außerhalb des gültigen Bereichs</translation>
    </message>
    <message>
        <source>Object doesn't support this property or method</source>
        <translation>Das Objekt hat diese Eigenschaft oder Methode nicht</translation>
    </message>
    <message>
        <source>Automation error</source>
        <translation>Automatisierungsfehler</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message>
        <source>About %1</source>
        <translation>Info zu %1</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>System &amp;Information</source>
        <translation>System&amp;information</translation>
    </message>
    <message>
        <source>System: %1
Kernel: %2 %3
Processor: %4
Qt: %5 (%6)
Screen: %7 x %8</source>
        <translation>System: %1
Kernel: %2 %3
Prozessor: %4
Qt: %5 (%6)
Bildschirm: %7 x %8</translation>
    </message>
    <message>
        <source>&amp;System Info...</source>
        <translation>&amp;Systeminfo …</translation>
    </message>
    <message>
        <source>The system-information tool is not installed on this computer.</source>
        <translation>Das Werkzeug für Systeminformationen ist auf diesem Computer nicht installiert.</translation>
    </message>
    <message>
        <source>There is no program to open %1</source>
        <translation>Kein Programm kann %1 öffnen</translation>
    </message>
    <message>
        <source>today</source>
        <translation>heute</translation>
    </message>
    <message>
        <source>Year</source>
        <translation>Jahr</translation>
    </message>
    <message>
        <source>Month</source>
        <translation>Monat</translation>
    </message>
    <message>
        <source>Previous year</source>
        <translation>Voriges Jahr</translation>
    </message>
    <message>
        <source>Next year</source>
        <translation>Nächstes Jahr</translation>
    </message>
    <message>
        <source>Previous month</source>
        <translation>Voriger Monat</translation>
    </message>
    <message>
        <source>Next month</source>
        <translation>Nächster Monat</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Press</source>
        <translation>Drücken</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Month calendar</source>
        <translation>Monatskalender</translation>
    </message>
    <message>
        <source>A month calendar: the user picks a date with mouse or keyboard, the program gives single days colours, captions and pictures.</source>
        <translation>Ein Monatskalender: Der Benutzer wählt mit Maus oder Tastatur ein Datum, das Programm gibt einzelnen Tagen Farben, Beschriftungen und Bilder.</translation>
    </message>
    <message>
        <source>Date box</source>
        <translation>Datumsfeld</translation>
    </message>
    <message>
        <source>A date box: it shows a date as text and opens a month calendar below it.</source>
        <translation>Ein Datumsfeld: Es zeigt ein Datum als Text und öffnet darunter einen Monatskalender.</translation>
    </message>
    <message>
        <source>Properties...</source>
        <translation>Eigenschaften …</translation>
    </message>
    <message>
        <source>Properties of '%1'</source>
        <translation>Eigenschaften von „%1“</translation>
    </message>
</context>
</TS>
