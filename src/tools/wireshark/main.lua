set_plugin_info({
    version = require("tavoro.version"),
    description = "Dissector for the protocol of Tavoro devices",
})

require("tavoro.stream").register()
require("tavoro.discovery").register()
