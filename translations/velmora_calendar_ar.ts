<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en">
<context>
    <name>VelmoraCalendar</name>
    <message>
        <source>General</source>
        <translation>عام</translation>
    </message>
    <message>
        <source>Appearance, captions, selectors and dates</source>
        <translation>المظهر والتسميات وأدوات الاختيار والتواريخ</translation>
    </message>
    <message>
        <source>&amp;Appearance:</source>
        <translation>المظهر (&amp;A):</translation>
    </message>
    <message>
        <source>&amp;Week day captions:</source>
        <translation>أسماء أيام الأسبوع (&amp;W):</translation>
    </message>
    <message>
        <source>Show week&amp;end</source>
        <translation>إظهار عطلة نهاية الأسبوع (&amp;E)</translation>
    </message>
    <message>
        <source>Week day a&amp;lignment:</source>
        <translation>محاذاة أيام الأسبوع (&amp;L):</translation>
    </message>
    <message>
        <source>Wee&amp;k day appearance:</source>
        <translation>مظهر أيام الأسبوع (&amp;K):</translation>
    </message>
    <message>
        <source>&amp;Month caption:</source>
        <translation>اسم الشهر (&amp;M):</translation>
    </message>
    <message>
        <source>M&amp;onth appearance:</source>
        <translation>مظهر الشهر (&amp;O):</translation>
    </message>
    <message>
        <source>Month and year &amp;selectors:</source>
        <translation>أدوات اختيار الشهر والسنة (&amp;S):</translation>
    </message>
    <message>
        <source>Ea&amp;rliest date:</source>
        <translation>أقدم تاريخ (&amp;R):</translation>
    </message>
    <message>
        <source>La&amp;test date:</source>
        <translation>أحدث تاريخ (&amp;T):</translation>
    </message>
    <message>
        <source>&amp;Date:</source>
        <translation>التاريخ (&amp;D):</translation>
    </message>
    <message>
        <source>Date &amp;format:</source>
        <translation>تنسيق التاريخ (&amp;F):</translation>
    </message>
    <message>
        <source>Drop-down</source>
        <translation>التقويم المنسدل</translation>
    </message>
    <message>
        <source>The enabled state and the size of the drop-down</source>
        <translation>حالة التمكين وحجم التقويم المنسدل</translation>
    </message>
    <message>
        <source>&amp;Enabled</source>
        <translation>ممكّن (&amp;E)</translation>
    </message>
    <message>
        <source>Drop-down &amp;width:</source>
        <translation>عرض التقويم المنسدل (&amp;W):</translation>
    </message>
    <message>
        <source>Drop-down &amp;height:</source>
        <translation>ارتفاع التقويم المنسدل (&amp;H):</translation>
    </message>
    <message>
        <source>Days</source>
        <translation>الأيام</translation>
    </message>
    <message>
        <source>The look of the days and the first day of the week</source>
        <translation>شكل الأيام وأول يوم في الأسبوع</translation>
    </message>
    <message>
        <source>&amp;First day of the week:</source>
        <translation>أول يوم في الأسبوع (&amp;F):</translation>
    </message>
    <message>
        <source>&amp;Number alignment:</source>
        <translation>محاذاة الرقم (&amp;N):</translation>
    </message>
    <message>
        <source>&amp;Caption alignment:</source>
        <translation>محاذاة التسمية (&amp;C):</translation>
    </message>
    <message>
        <source>&amp;Picture alignment:</source>
        <translation>محاذاة الصورة (&amp;P):</translation>
    </message>
    <message>
        <source>Colors and fonts</source>
        <translation>الألوان والخطوط</translation>
    </message>
    <message>
        <source>The colors and fonts of all parts</source>
        <translation>ألوان جميع الأجزاء وخطوطها</translation>
    </message>
    <message>
        <source>&amp;Day background:</source>
        <translation>خلفية الأيام (&amp;D):</translation>
    </message>
    <message>
        <source>Day &amp;text:</source>
        <translation>نص الأيام (&amp;T):</translation>
    </message>
    <message>
        <source>&amp;Other months' days:</source>
        <translation>أيام الأشهر الأخرى (&amp;O):</translation>
    </message>
    <message>
        <source>&amp;Selected background:</source>
        <translation>خلفية التحديد (&amp;S):</translation>
    </message>
    <message>
        <source>S&amp;elected text:</source>
        <translation>نص التحديد (&amp;E):</translation>
    </message>
    <message>
        <source>Tod&amp;ay background:</source>
        <translation>خلفية اليوم الحالي (&amp;A):</translation>
    </message>
    <message>
        <source>Today te&amp;xt:</source>
        <translation>نص اليوم الحالي (&amp;X):</translation>
    </message>
    <message>
        <source>&amp;Month background:</source>
        <translation>خلفية الشهر (&amp;M):</translation>
    </message>
    <message>
        <source>Mo&amp;nth text:</source>
        <translation>نص الشهر (&amp;N):</translation>
    </message>
    <message>
        <source>&amp;Week day background:</source>
        <translation>خلفية أيام الأسبوع (&amp;W):</translation>
    </message>
    <message>
        <source>Wee&amp;k day text:</source>
        <translation>نص أيام الأسبوع (&amp;K):</translation>
    </message>
    <message>
        <source>Day &amp;font:</source>
        <translation>خط الأيام (&amp;F):</translation>
    </message>
    <message>
        <source>Mont&amp;h font:</source>
        <translation>خط الشهر (&amp;H):</translation>
    </message>
    <message>
        <source>Week da&amp;y font:</source>
        <translation>خط أيام الأسبوع (&amp;Y):</translation>
    </message>
    <message>
        <source>Date &amp;box font:</source>
        <translation>خط مربع التاريخ (&amp;B):</translation>
    </message>
    <message>
        <source>VmAppearanceFlat</source>
        <translation>مسطح</translation>
    </message>
    <message>
        <source>VmAppearance3D</source>
        <translation>ثلاثي الأبعاد</translation>
    </message>
    <message>
        <source>VmTextTopLeft</source>
        <translation>أعلى اليسار</translation>
    </message>
    <message>
        <source>VmTextMiddleLeft</source>
        <translation>وسط اليسار</translation>
    </message>
    <message>
        <source>VmTextBottomLeft</source>
        <translation>أسفل اليسار</translation>
    </message>
    <message>
        <source>VmTextTopCenter</source>
        <translation>أعلى الوسط</translation>
    </message>
    <message>
        <source>VmTextMiddleCenter</source>
        <translation>الوسط</translation>
    </message>
    <message>
        <source>VmTextBottomCenter</source>
        <translation>أسفل الوسط</translation>
    </message>
    <message>
        <source>VmTextTopRight</source>
        <translation>أعلى اليمين</translation>
    </message>
    <message>
        <source>VmTextMiddleRight</source>
        <translation>وسط اليمين</translation>
    </message>
    <message>
        <source>VmTextBottomRight</source>
        <translation>أسفل اليمين</translation>
    </message>
    <message>
        <source>VmPictTopLeft</source>
        <translation>أعلى اليسار</translation>
    </message>
    <message>
        <source>VmPictMiddleLeft</source>
        <translation>وسط اليسار</translation>
    </message>
    <message>
        <source>VmPictBottomLeft</source>
        <translation>أسفل اليسار</translation>
    </message>
    <message>
        <source>VmPictTopCenter</source>
        <translation>أعلى الوسط</translation>
    </message>
    <message>
        <source>VmPictMiddleCenter</source>
        <translation>الوسط</translation>
    </message>
    <message>
        <source>VmPictBottomCenter</source>
        <translation>أسفل الوسط</translation>
    </message>
    <message>
        <source>VmPictTopRight</source>
        <translation>أعلى اليمين</translation>
    </message>
    <message>
        <source>VmPictMiddleRight</source>
        <translation>وسط اليمين</translation>
    </message>
    <message>
        <source>VmPictBottomRight</source>
        <translation>أسفل اليمين</translation>
    </message>
    <message>
        <source>VmPictStretch</source>
        <translation>ممتدة</translation>
    </message>
    <message>
        <source>VmPictTile</source>
        <translation>مكررة</translation>
    </message>
    <message>
        <source>VmPictLeftOfText</source>
        <translation>يسار النص</translation>
    </message>
    <message>
        <source>VmPictRightOfText</source>
        <translation>يمين النص</translation>
    </message>
    <message>
        <source>VmPictAboveText</source>
        <translation>فوق النص</translation>
    </message>
    <message>
        <source>VmPictBelowText</source>
        <translation>تحت النص</translation>
    </message>
    <message>
        <source>VmSunday</source>
        <translation>الأحد</translation>
    </message>
    <message>
        <source>VmMonday</source>
        <translation>الاثنين</translation>
    </message>
    <message>
        <source>VmTuesday</source>
        <translation>الثلاثاء</translation>
    </message>
    <message>
        <source>VmWednesday</source>
        <translation>الأربعاء</translation>
    </message>
    <message>
        <source>VmThursday</source>
        <translation>الخميس</translation>
    </message>
    <message>
        <source>VmFriday</source>
        <translation>الجمعة</translation>
    </message>
    <message>
        <source>VmSaturday</source>
        <translation>السبت</translation>
    </message>
    <message>
        <source>VmWeekdayNone</source>
        <translation>بلا</translation>
    </message>
    <message>
        <source>VmWeekDayFullName</source>
        <translation>الاسم الكامل</translation>
    </message>
    <message>
        <source>VmWeekDayAbbrName</source>
        <translation>اسم مختصر</translation>
    </message>
    <message>
        <source>VmWeekDayLetter</source>
        <translation>الحرف الأول</translation>
    </message>
    <message>
        <source>VmMonthFullName</source>
        <translation>الاسم الكامل</translation>
    </message>
    <message>
        <source>VmMonthAbbrName</source>
        <translation>اسم مختصر</translation>
    </message>
    <message>
        <source>VmMonthSelNone</source>
        <translation>بلا</translation>
    </message>
    <message>
        <source>VmMonthSelArrows</source>
        <translation>أسهم</translation>
    </message>
    <message>
        <source>VmMonthSelCombo</source>
        <translation>قائمة الأشهر وحقل السنة</translation>
    </message>
    <message>
        <source>VmMonthSelScrollbar</source>
        <translation>شريط تمرير</translation>
    </message>
    <message>
        <source>Property '%1' cannot be blank</source>
        <translation>لا يمكن أن تكون الخاصية "%1" فارغة</translation>
    </message>
    <message>
        <source>Property 'DropDownWidth' must a number.</source>
        <translation>يجب أن يكون حجم التقويم رقمًا.</translation>
    </message>
    <message>
        <source>Invalid Date Format%1</source>
        <translation>تنسيق تاريخ غير صالح: %1</translation>
    </message>
    <message>
        <source>Invalid procedure call or argument</source>
        <translation>استدعاء أو وسيط غير صالح</translation>
    </message>
    <message>
        <source>Overflow</source>
        <translation>تجاوز السعة</translation>
    </message>
    <message>
        <source>Type mismatch</source>
        <translation>عدم تطابق الأنواع</translation>
    </message>
    <message>
        <source>Invalid property value</source>
        <translation>قيمة خاصية غير صالحة</translation>
    </message>
    <message>
        <source>Subscript out of range</source>
        <translation>فهرس خارج النطاق</translation>
    </message>
    <message>
        <source>Object doesn't support this property or method</source>
        <translation>لا يدعم الكائن هذه الخاصية أو الأسلوب</translation>
    </message>
    <message>
        <source>Automation error</source>
        <translation>خطأ في الأتمتة</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>الخصائص</translation>
    </message>
    <message>
        <source>About %1</source>
        <translation>حول %1</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>الإصدار %1</translation>
    </message>
    <message>
        <source>System &amp;Information</source>
        <translation>معلومات النظام (&amp;I)</translation>
    </message>
    <message>
        <source>System: %1
Kernel: %2 %3
Processor: %4
Qt: %5 (%6)
Screen: %7 x %8</source>
        <translation>النظام: %1
النواة: %2 %3
المعالج: %4
Qt: %5 (%6)
الشاشة: %7 x %8</translation>
    </message>
    <message>
        <source>&amp;System Info...</source>
        <translation>معلومات النظام (&amp;S)...</translation>
    </message>
    <message>
        <source>The system-information tool is not installed on this computer.</source>
        <translation>أداة معلومات النظام غير مثبتة على هذا الحاسوب.</translation>
    </message>
    <message>
        <source>There is no program to open %1</source>
        <translation>لا يوجد برنامج لفتح %1</translation>
    </message>
    <message>
        <source>today</source>
        <translation>اليوم</translation>
    </message>
    <message>
        <source>Year</source>
        <translation>السنة</translation>
    </message>
    <message>
        <source>Month</source>
        <translation>الشهر</translation>
    </message>
    <message>
        <source>Previous year</source>
        <translation>السنة السابقة</translation>
    </message>
    <message>
        <source>Next year</source>
        <translation>السنة التالية</translation>
    </message>
    <message>
        <source>Previous month</source>
        <translation>الشهر السابق</translation>
    </message>
    <message>
        <source>Next month</source>
        <translation>الشهر التالي</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>فتح</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>إغلاق</translation>
    </message>
    <message>
        <source>Press</source>
        <translation>ضغط</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>تحديد</translation>
    </message>
    <message>
        <source>Month calendar</source>
        <translation>تقويم شهري</translation>
    </message>
    <message>
        <source>A month calendar: the user picks a date with mouse or keyboard, the program gives single days colours, captions and pictures.</source>
        <translation>تقويم شهري: يختار المستخدم تاريخًا بالفأرة أو بلوحة المفاتيح، ويمنح البرنامج أيامًا بعينها ألوانًا وتسميات وصورًا.</translation>
    </message>
    <message>
        <source>Date box</source>
        <translation>مربع التاريخ</translation>
    </message>
    <message>
        <source>A date box: it shows a date as text and opens a month calendar below it.</source>
        <translation>مربع تاريخ: يعرض تاريخًا على هيئة نص ويفتح تحته تقويمًا شهريًا.</translation>
    </message>
    <message>
        <source>Properties...</source>
        <translation>الخصائص...</translation>
    </message>
    <message>
        <source>Properties of '%1'</source>
        <translation>خصائص "%1"</translation>
    </message>
</context>
</TS>
