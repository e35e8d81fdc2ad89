/// @file
/// The properties of the widget: those of property_list.h in the toolkit's types.
#pragma once

#include <QString>

#include <KurvGraph/property_list.h>

//
//   Property            Type     Initially          Meaning
//   ymin                double   random             Lower limit of y
//   ymax                double   random             Upper limit of y
//   xmax                double   10                 Upper limit of x
//   xmin                double   1                  Lower limit of x
//   NumTicks            int      10                 Tick intervals on each axis
//   Autoscale           bool     True               Limits follow the data of shown curves
//   Connected           bool     True               Lines between the points
//   DrawMarkers         bool     True               A marker at each point; only True draws them
//   QueryForSave        bool     False              Ask the user to save before the control ends
//   SortXY              bool     False              Plot the points sorted by x
//   Y_grid              bool     False              Vertical lines at the x ticks
//   X_grid              bool     False              Horizontal lines at the y ticks
//   CurvesWidth         int      1                  Width of curves, pixels
//   BorderWidth         int      2                  Width of the frame, pixels
//   AxisLabelFormatX    QString  `0.00`             Number format of the x labels
//   FontName            QString  the surface's      Font of axis labels and legend
//   FontSize            double   the surface's      Font size of axis labels and legend, points
//   FontBold            bool     the surface's      Axis labels and legend in bold
//   FontItalic          bool     the surface's      Axis labels and legend in italics
//   TitleFontName       QString  the surface's      Font of the title
//   TitleFontSize       double   the surface's + 3  Font size of the title, points
//   TitleFontBold       bool     True               The title in bold
//   TitleFontItalic     bool     the surface's      The title in italics
//   SubTitleFontName    QString  the surface's      Font of the subtitle
//   SubTitleFontSize    double   the surface's      Font size of the subtitle, points
//   SubTitleFontBold    bool     the surface's      The subtitle in bold
//   SubTitleFontItalic  bool     the surface's      The subtitle in italics
//   AxisLabelFormatY    QString  `0.0`              Number format of the y labels
//   Right_margine       int      800                Space right of the plot, twips
//   Left_margine        int      800                Space left of the plot, twips
//   Top_margine         int      480                Space above the plot, twips
//   Bottom_margine      int      520                Space below the plot, twips
//   MarkerSize          int      40                 Radius of the circular markers, twips; 2..500
//   Title               QString  `Scatter Points Graph` The title
//   SubTitle            QString  empty              The subtitle, beside the title
//

/// @cond
// The toolkit's type for each type of property_list.h, and what a row becomes in the class. moc
// expands macros, so it sees a Q_PROPERTY for each row.
#define KURV_QT_Boolean bool
#define KURV_QT_Integer int
#define KURV_QT_Single double
#define KURV_QT_Double double
#define KURV_QT_String QString
#define KURV_QT_PROPERTY(name, dispatch_id, Type, ...) \
  Q_PROPERTY(KURV_QT_##Type name READ name WRITE set_##name)
#define KURV_QT_DECLARE(name, dispatch_id, Type, ...) \
  KURV_QT_##Type name() const;                        \
  void set_##name(PropertyArgument<KURV_QT_##Type> value);
/// @endcond
