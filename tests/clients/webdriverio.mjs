// Sessions of webdriverio.
import { remote } from 'webdriverio';

import { openSheet, patience, withPhone } from './phone.mjs';

/// Nothing is asked twice unless a test says so: a request that needs it has found an error.
export function connect(phone, options = {}) {
    return remote({
        hostname: '127.0.0.1',
        port: phone.port,
        logLevel: 'error',
        connectionRetryCount: 0,
        connectionRetryTimeout: patience,
        waitforTimeout: patience,
        ...options,
        capabilities: { platformName: 'iOS', 'appium:automationName': 'XCUITest', ...options.capabilities },
    });
}

/// A test's body with a session on a phone of its own: `body(driver, phone)`.
export function onPhone(body, options = {}) {
    return () => withPhone(options, async (phone) => {
        const driver = await connect(phone);
        await body(driver, phone);
        await driver.deleteSession();
    });
}

/// The same, with the share sheet over a call.
export function onSheet(body, options = {}) {
    return onPhone(async (driver, phone) => {
        await openSheet((name, values) => driver.execute(`mobile: ${name}`, values));
        await body(driver, phone);
    }, options);
}
