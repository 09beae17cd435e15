#pragma once

#include <QtQml/QQmlExtensionPlugin>

/// Registers the module "tamber.Ui", and "tamber.Ui.Private" along with it: a QML file that imports
/// the private module names it after the public one.
class TamberUiKitPlugin : public QQmlExtensionPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QQmlExtensionInterface_iid)

public:
    /// Runs when the plugin is loaded, before any module of it is registered.
    explicit TamberUiKitPlugin(QObject *parent = nullptr);
    ~TamberUiKitPlugin() override;

    void registerTypes(const char *uri) override;
    void initializeEngine(QQmlEngine *engine, const char *uri) override;
};
