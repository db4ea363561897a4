// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The window as it is written for GTK 4, with bindings of GObject properties.

#include "WindowUnderTest.h"

#include <gtk/gtk.h>
#include <vector>

namespace {

// A key of the model: an object with a property of each type that a control has.
struct Setting
{
    GObject theParent;
    double theNumber;
    gboolean theIsOn;
    char* theText; // owned
};

struct SettingClass
{
    GObjectClass theParent;
};

enum : guint
{
    kNumber = 1,
    kIsOn,
    kText,
    kPropertyCount,
};

GParamSpec* gProperties[kPropertyCount];

G_DEFINE_TYPE(Setting, setting, G_TYPE_OBJECT)

void SetSetting(GObject* theObject, guint theProperty, const GValue* theValue, GParamSpec* theSpec)
{
    auto* const theSetting = reinterpret_cast<Setting*>(theObject);
    switch (theProperty) {
    case kNumber:
        if (theSetting->theNumber == g_value_get_double(theValue)) {
            return;
        }
        theSetting->theNumber = g_value_get_double(theValue);
        break;
    case kIsOn:
        if (theSetting->theIsOn == g_value_get_boolean(theValue)) {
            return;
        }
        theSetting->theIsOn = g_value_get_boolean(theValue);
        break;
    default:
        if (g_strcmp0(theSetting->theText, g_value_get_string(theValue)) == 0) {
            return;
        }
        g_free(theSetting->theText);
        theSetting->theText = g_value_dup_string(theValue);
        break;
    }
    g_object_notify_by_pspec(theObject, theSpec);
}

void GetSetting(GObject* theObject, guint theProperty, GValue* theValue, GParamSpec*)
{
    const auto* const theSetting = reinterpret_cast<Setting*>(theObject);
    switch (theProperty) {
    case kNumber:
        g_value_set_double(theValue, theSetting->theNumber);
        break;
    case kIsOn:
        g_value_set_boolean(theValue, theSetting->theIsOn);
        break;
    default:
        g_value_set_string(theValue, theSetting->theText);
        break;
    }
}

void FinalizeSetting(GObject* theObject)
{
    g_free(reinterpret_cast<Setting*>(theObject)->theText);
    G_OBJECT_CLASS(setting_parent_class)->finalize(theObject);
}

void setting_class_init(SettingClass* theClass)
{
    constexpr auto kFlags = static_cast<GParamFlags>(G_PARAM_READWRITE | G_PARAM_EXPLICIT_NOTIFY);
    GObjectClass* const theBase = G_OBJECT_CLASS(theClass);
    theBase->set_property = SetSetting;
    theBase->get_property = GetSetting;
    theBase->finalize = FinalizeSetting;
    gProperties[kNumber] = g_param_spec_double("number", "", "", 0, kHighest, 0, kFlags);
    gProperties[kIsOn] = g_param_spec_boolean("is-on", "", "", FALSE, kFlags);
    gProperties[kText] = g_param_spec_string("text", "", "", "", kFlags);
    g_object_class_install_properties(theBase, kPropertyCount, gProperties);
}

void setting_init(Setting*) {}

gboolean ToFraction(GBinding*, const GValue* theNumber, GValue* theFraction, gpointer)
{
    g_value_set_double(theFraction, g_value_get_double(theNumber) / kHighest);
    return TRUE;
}

class GtkPeerWindow final : public WindowUnderTest
{
public:
    explicit GtkPeerWindow(const WindowPlan& thePlan)
        : mPlan(thePlan)
    {
        for (std::size_t theKey = 0; theKey < thePlan.theControls; ++theKey) {
            mSettings.push_back(reinterpret_cast<Setting*>(g_object_new(setting_get_type(), nullptr)));
        }
        mNumbers.resize(thePlan.theControls);
    }

    ~GtkPeerWindow() override
    {
        if (mWindow != nullptr) {
            gtk_window_destroy(GTK_WINDOW(mWindow));
        }
        for (Setting* theSetting : mSettings) {
            g_object_unref(theSetting);
        }
    }

    void Open() override
    {
        mWindow = gtk_window_new();
        gtk_window_set_decorated(GTK_WINDOW(mWindow), FALSE);
        gtk_window_set_default_size(GTK_WINDOW(mWindow), kColumns * kCellWidth, kRows * kCellHeight);
        GtkWidget* const theContent = gtk_fixed_new();
        for (std::size_t theIndex = 0; theIndex < mPlan.theControls; ++theIndex) {
            GtkWidget* const theControl = Make(theIndex, G_OBJECT(mSettings[mPlan.KeyOf(theIndex)]));
            const Place thePlace = WindowPlan::PlaceOf(theIndex);
            gtk_widget_set_size_request(theControl, kControlWidth, kControlHeight);
            gtk_fixed_put(GTK_FIXED(theContent), theControl, thePlace.theLeft, thePlace.theTop);
            mControls.push_back(theControl);
        }
        gtk_window_set_child(GTK_WINDOW(mWindow), theContent);
        gtk_window_present(GTK_WINDOW(mWindow));
    }

    void Set(std::size_t theKey, int theNumber) override
    {
        mNumbers[theKey] = theNumber;
        GObject* const theSetting = G_OBJECT(mSettings[theKey]);
        switch (mPlan.KindOf(theKey)) {
        case WidgetKind::kTextField:
            g_object_set(theSetting, "text", TextOf(theNumber).c_str(), nullptr);
            break;
        case WidgetKind::kCheckBox:
            g_object_set(theSetting, "is-on", theNumber % 2, nullptr);
            break;
        default:
            g_object_set(theSetting, "number", static_cast<double>(theNumber), nullptr);
            break;
        }
    }

    int Get(std::size_t theKey) const override
    {
        return mPlan.KindOf(theKey) == WidgetKind::kSlider ? static_cast<int>(mSettings[theKey]->theNumber)
                                                           : mNumbers[theKey];
    }

    bool Shows(std::size_t theIndex, int theNumber) const override
    {
        GtkWidget* const theControl = mControls[theIndex];
        switch (mPlan.KindOf(theIndex)) {
        case WidgetKind::kTextField:
            return gtk_editable_get_text(GTK_EDITABLE(theControl)) == TextOf(theNumber);
        case WidgetKind::kCheckBox:
            return (gtk_check_button_get_active(GTK_CHECK_BUTTON(theControl)) != FALSE) ==
                   (theNumber % 2 == 1);
        case WidgetKind::kProgressBar:
            return gtk_progress_bar_get_fraction(GTK_PROGRESS_BAR(theControl)) * kHighest == theNumber;
        case WidgetKind::kSlider:
            break;
        }
        return static_cast<int>(gtk_range_get_value(GTK_RANGE(theControl))) == theNumber;
    }

    void Run(double theSeconds) override
    {
        GMainLoop* const theLoop = g_main_loop_new(nullptr, FALSE);
        const auto theEnd = [](gpointer theData) -> gboolean {
            g_main_loop_quit(static_cast<GMainLoop*>(theData));
            return G_SOURCE_REMOVE;
        };
        g_timeout_add(static_cast<guint>(theSeconds * 1000), theEnd, theLoop);
        g_main_loop_run(theLoop);
        g_main_loop_unref(theLoop);
    }

private:
    GtkWidget* Make(std::size_t theIndex, GObject* theSetting)
    {
        constexpr auto kBothWays =
            static_cast<GBindingFlags>(G_BINDING_BIDIRECTIONAL | G_BINDING_SYNC_CREATE);
        switch (mPlan.KindOf(theIndex)) {
        case WidgetKind::kTextField: {
            GtkWidget* const theField = gtk_entry_new();
            gtk_editable_set_width_chars(GTK_EDITABLE(theField), 1);
            g_object_bind_property(theSetting, "text", theField, "text", kBothWays);
            return theField;
        }
        case WidgetKind::kCheckBox: {
            GtkWidget* const theBox = gtk_check_button_new_with_label("Option");
            g_object_bind_property(theSetting, "is-on", theBox, "active", kBothWays);
            return theBox;
        }
        case WidgetKind::kProgressBar: {
            GtkWidget* const theBar = gtk_progress_bar_new();
            g_object_bind_property_full(theSetting, "number", theBar, "fraction", G_BINDING_SYNC_CREATE,
                                        ToFraction, nullptr, nullptr, nullptr);
            return theBar;
        }
        case WidgetKind::kSlider:
            break;
        }
        GtkWidget* const theSlider = gtk_scale_new_with_range(GTK_ORIENTATION_HORIZONTAL, 0, kHighest, 1);
        gtk_scale_set_draw_value(GTK_SCALE(theSlider), FALSE);
        g_object_bind_property(theSetting, "number", gtk_range_get_adjustment(GTK_RANGE(theSlider)), "value",
                               kBothWays);
        return theSlider;
    }

    WindowPlan mPlan;
    std::vector<int> mNumbers;         // what was set last
    std::vector<Setting*> mSettings;   // one reference each
    std::vector<GtkWidget*> mControls; // owned by the window
    GtkWidget* mWindow = nullptr;
};

} // namespace

// Without animations, so that a change is painted once and not for a fifth of a second.
std::unique_ptr<WindowUnderTest> MakeWindow(const WindowPlan& thePlan)
{
    gtk_init();
    g_object_set(gtk_settings_get_default(), "gtk-enable-animations", FALSE, nullptr);
    return std::make_unique<GtkPeerWindow>(thePlan);
}
