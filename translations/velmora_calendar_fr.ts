<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>VelmoraCalendar</name>
    <message>
        <source>General</source>
        <translation>Général</translation>
    </message>
    <message>
        <source>Appearance, captions, selectors and dates</source>
        <translation>Apparence, libellés, sélecteurs et dates</translation>
    </message>
    <message>
        <source>&amp;Appearance:</source>
        <translation>&amp;Apparence :</translation>
    </message>
    <message>
        <source>&amp;Week day captions:</source>
        <translation>Noms des &amp;jours :</translation>
    </message>
    <message>
        <source>Show week&amp;end</source>
        <translation>Afficher le &amp;week-end</translation>
    </message>
    <message>
        <source>Week day a&amp;lignment:</source>
        <translation>A&amp;lignement des jours :</translation>
    </message>
    <message>
        <source>Wee&amp;k day appearance:</source>
        <translation>Apparence des jo&amp;urs :</translation>
    </message>
    <message>
        <source>&amp;Month caption:</source>
        <translation>Nom du &amp;mois :</translation>
    </message>
    <message>
        <source>M&amp;onth appearance:</source>
        <translation>Apparence du m&amp;ois :</translation>
    </message>
    <message>
        <source>Month and year &amp;selectors:</source>
        <translation>&amp;Sélecteurs de mois et d'année :</translation>
    </message>
    <message>
        <source>Ea&amp;rliest date:</source>
        <translation>Date la &amp;plus ancienne :</translation>
    </message>
    <message>
        <source>La&amp;test date:</source>
        <translation>Date la plus &amp;récente :</translation>
    </message>
    <message>
        <source>&amp;Date:</source>
        <translation>&amp;Date :</translation>
    </message>
    <message>
        <source>Date &amp;format:</source>
        <translation>&amp;Format de date :</translation>
    </message>
    <message>
        <source>Drop-down</source>
        <translation>Calendrier déroulant</translation>
    </message>
    <message>
        <source>The enabled state and the size of the drop-down</source>
        <translation>L'état activé et la taille du calendrier déroulant</translation>
    </message>
    <message>
        <source>&amp;Enabled</source>
        <translation>A&amp;ctivé</translation>
    </message>
    <message>
        <source>Drop-down &amp;width:</source>
        <translation>&amp;Largeur du calendrier :</translation>
    </message>
    <message>
        <source>Drop-down &amp;height:</source>
        <translation>&amp;Hauteur du calendrier :</translation>
    </message>
    <message>
        <source>Days</source>
        <translation>Jours</translation>
    </message>
    <message>
        <source>The look of the days and the first day of the week</source>
        <translation>L'aspect des jours et le premier jour de la semaine</translation>
    </message>
    <message>
        <source>&amp;First day of the week:</source>
        <translation>&amp;Premier jour de la semaine :</translation>
    </message>
    <message>
        <source>&amp;Number alignment:</source>
        <translation>Alignement du &amp;numéro :</translation>
    </message>
    <message>
        <source>&amp;Caption alignment:</source>
        <translation>Alignement de la &amp;légende :</translation>
    </message>
    <message>
        <source>&amp;Picture alignment:</source>
        <translation>Alignement de l'&amp;image :</translation>
    </message>
    <message>
        <source>Colors and fonts</source>
        <translation>Couleurs et polices</translation>
    </message>
    <message>
        <source>The colors and fonts of all parts</source>
        <translation>Les couleurs et les polices de toutes les parties</translation>
    </message>
    <message>
        <source>&amp;Day background:</source>
        <translation>&amp;Fond des jours :</translation>
    </message>
    <message>
        <source>Day &amp;text:</source>
        <translation>&amp;Texte des jours :</translation>
    </message>
    <message>
        <source>&amp;Other months' days:</source>
        <translation>Jours des &amp;autres mois :</translation>
    </message>
    <message>
        <source>&amp;Selected background:</source>
        <translation>Fond de la &amp;sélection :</translation>
    </message>
    <message>
        <source>S&amp;elected text:</source>
        <translation>Te&amp;xte de la sélection :</translation>
    </message>
    <message>
        <source>Tod&amp;ay background:</source>
        <translation>F&amp;ond d'aujourd'hui :</translation>
    </message>
    <message>
        <source>Today te&amp;xt:</source>
        <translation>Texte d'aujourd'&amp;hui :</translation>
    </message>
    <message>
        <source>&amp;Month background:</source>
        <translation>Fond du &amp;mois :</translation>
    </message>
    <message>
        <source>Mo&amp;nth text:</source>
        <translation>Texte &amp;du mois :</translation>
    </message>
    <message>
        <source>&amp;Week day background:</source>
        <translation>Fond des noms de &amp;jours :</translation>
    </message>
    <message>
        <source>Wee&amp;k day text:</source>
        <translation>Texte des &amp;noms de jours :</translation>
    </message>
    <message>
        <source>Day &amp;font:</source>
        <translation>&amp;Police des jours :</translation>
    </message>
    <message>
        <source>Mont&amp;h font:</source>
        <translation>Po&amp;lice du mois :</translation>
    </message>
    <message>
        <source>Week da&amp;y font:</source>
        <translation>Poli&amp;ce des noms de jours :</translation>
    </message>
    <message>
        <source>Date &amp;box font:</source>
        <translation>Police de la &amp;zone de date :</translation>
    </message>
    <message>
        <source>VmAppearanceFlat</source>
        <translation>Plat</translation>
    </message>
    <message>
        <source>VmAppearance3D</source>
        <translation>En relief</translation>
    </message>
    <message>
        <source>VmTextTopLeft</source>
        <translation>En haut à gauche</translation>
    </message>
    <message>
        <source>VmTextMiddleLeft</source>
        <translation>Au milieu à gauche</translation>
    </message>
    <message>
        <source>VmTextBottomLeft</source>
        <translation>En bas à gauche</translation>
    </message>
    <message>
        <source>VmTextTopCenter</source>
        <translation>En haut au centre</translation>
    </message>
    <message>
        <source>VmTextMiddleCenter</source>
        <translation>Au centre</translation>
    </message>
    <message>
        <source>VmTextBottomCenter</source>
        <translation>En bas au centre</translation>
    </message>
    <message>
        <source>VmTextTopRight</source>
        <translation>En haut à droite</translation>
    </message>
    <message>
        <source>VmTextMiddleRight</source>
        <translation>Au milieu à droite</translation>
    </message>
    <message>
        <source>VmTextBottomRight</source>
        <translation>En bas à droite</translation>
    </message>
    <message>
        <source>VmPictTopLeft</source>
        <translation>En haut à gauche</translation>
    </message>
    <message>
        <source>VmPictMiddleLeft</source>
        <translation>Au milieu à gauche</translation>
    </message>
    <message>
        <source>VmPictBottomLeft</source>
        <translation>En bas à gauche</translation>
    </message>
    <message>
        <source>VmPictTopCenter</source>
        <translation>En haut au centre</translation>
    </message>
    <message>
        <source>VmPictMiddleCenter</source>
        <translation>Au centre</translation>
    </message>
    <message>
        <source>VmPictBottomCenter</source>
        <translation>En bas au centre</translation>
    </message>
    <message>
        <source>VmPictTopRight</source>
        <translation>En haut à droite</translation>
    </message>
    <message>
        <source>VmPictMiddleRight</source>
        <translation>Au milieu à droite</translation>
    </message>
    <message>
        <source>VmPictBottomRight</source>
        <translation>En bas à droite</translation>
    </message>
    <message>
        <source>VmPictStretch</source>
        <translation>Étirée</translation>
    </message>
    <message>
        <source>VmPictTile</source>
        <translation>En mosaïque</translation>
    </message>
    <message>
        <source>VmPictLeftOfText</source>
        <translation>À gauche du texte</translation>
    </message>
    <message>
        <source>VmPictRightOfText</source>
        <translation>À droite du texte</translation>
    </message>
    <message>
        <source>VmPictAboveText</source>
        <translation>Au-dessus du texte</translation>
    </message>
    <message>
        <source>VmPictBelowText</source>
        <translation>Au-dessous du texte</translation>
    </message>
    <message>
        <source>VmSunday</source>
        <translation>Dimanche</translation>
    </message>
    <message>
        <source>VmMonday</source>
        <translation>Lundi</translation>
    </message>
    <message>
        <source>VmTuesday</source>
        <translation>Mardi</translation>
    </message>
    <message>
        <source>VmWednesday</source>
        <translation>Mercredi</translation>
    </message>
    <message>
        <source>VmThursday</source>
        <translation>Jeudi</translation>
    </message>
    <message>
        <source>VmFriday</source>
        <translation>Vendredi</translation>
    </message>
    <message>
        <source>VmSaturday</source>
        <translation>Samedi</translation>
    </message>
    <message>
        <source>VmWeekdayNone</source>
        <translation>Aucun</translation>
    </message>
    <message>
        <source>VmWeekDayFullName</source>
        <translation>Nom complet</translation>
    </message>
    <message>
        <source>VmWeekDayAbbrName</source>
        <translation>Nom abrégé</translation>
    </message>
    <message>
        <source>VmWeekDayLetter</source>
        <translation>Première lettre</translation>
    </message>
    <message>
        <source>VmMonthFullName</source>
        <translation>Nom complet</translation>
    </message>
    <message>
        <source>VmMonthAbbrName</source>
        <translation>Nom abrégé</translation>
    </message>
    <message>
        <source>VmMonthSelNone</source>
        <translation>Aucun</translation>
    </message>
    <message>
        <source>VmMonthSelArrows</source>
        <translation>Flèches</translation>
    </message>
    <message>
        <source>VmMonthSelCombo</source>
        <translation>Liste des mois et champ de l'année</translation>
    </message>
    <message>
        <source>VmMonthSelScrollbar</source>
        <translation>Barre de défilement</translation>
    </message>
    <message>
        <source>Property '%1' cannot be blank</source>
        <translation>La propriété « %1 » ne peut pas être vide</translation>
    </message>
    <message>
        <source>Property 'DropDownWidth' must a number.</source>
        <translation>La taille du calendrier doit être un nombre.</translation>
    </message>
    <message>
        <source>Invalid Date Format%1</source>
        <translation>Format de date incorrect : %1</translation>
    </message>
    <message>
        <source>Invalid procedure call or argument</source>
        <translation>Appel ou argument incorrect</translation>
    </message>
    <message>
        <source>Overflow</source>
        <translation>Dépassement de capacité</translation>
    </message>
    <message>
        <source>Type mismatch</source>
        <translation>Types incompatibles</translation>
    </message>
    <message>
        <source>Invalid property value</source>
        <translation>Valeur de propriété incorrecte</translation>
    </message>
    <message>
        <source>Subscript out of range</source>
        <translation>Indice hors limites</translation>
    </message>
    <message>
        <source>Object doesn't support this property or method</source>
        <translation>L'objet n'a pas cette propriété ou méthode</translation>
    </message>
    <message>
        <source>Automation error</source>
        <translation>Erreur d'automation</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Propriétés</translation>
    </message>
    <message>
        <source>About %1</source>
        <translation>À propos de %1</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>System &amp;Information</source>
        <translation>&amp;Informations système</translation>
    </message>
    <message>
        <source>System: %1
Kernel: %2 %3
Processor: %4
Qt: %5 (%6)
Screen: %7 x %8</source>
        <translation>Système : %1
Noyau : %2 %3
Processeur : %4
Qt : %5 (%6)
Écran : %7 x %8</translation>
    </message>
    <message>
        <source>&amp;System Info...</source>
        <translation>Infos &amp;système…</translation>
    </message>
    <message>
        <source>The system-information tool is not installed on this computer.</source>
        <translation>L'outil d'informations système n'est pas installé sur cet ordinateur.</translation>
    </message>
    <message>
        <source>There is no program to open %1</source>
        <translation>Aucun programme ne peut ouvrir %1</translation>
    </message>
    <message>
        <source>today</source>
        <translation>aujourd'hui</translation>
    </message>
    <message>
        <source>Year</source>
        <translation>Année</translation>
    </message>
    <message>
        <source>Month</source>
        <translation>Mois</translation>
    </message>
    <message>
        <source>Previous year</source>
        <translation>Année précédente</translation>
    </message>
    <message>
        <source>Next year</source>
        <translation>Année suivante</translation>
    </message>
    <message>
        <source>Previous month</source>
        <translation>Mois précédent</translation>
    </message>
    <message>
        <source>Next month</source>
        <translation>Mois suivant</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Press</source>
        <translation>Appuyer</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Sélectionner</translation>
    </message>
    <message>
        <source>Month calendar</source>
        <translation>Calendrier mensuel</translation>
    </message>
    <message>
        <source>A month calendar: the user picks a date with mouse or keyboard, the program gives single days colours, captions and pictures.</source>
        <translation>Un calendrier mensuel : l'utilisateur choisit une date à la souris ou au clavier, le programme donne à certains jours des couleurs, des légendes et des images.</translation>
    </message>
    <message>
        <source>Date box</source>
        <translation>Zone de date</translation>
    </message>
    <message>
        <source>A date box: it shows a date as text and opens a month calendar below it.</source>
        <translation>Une zone de date : elle montre une date en texte et ouvre au-dessous un calendrier mensuel.</translation>
    </message>
    <message>
        <source>Properties...</source>
        <translation>Propriétés…</translation>
    </message>
    <message>
        <source>Properties of '%1'</source>
        <translation>Propriétés de « %1 »</translation>
    </message>
</context>
</TS>
