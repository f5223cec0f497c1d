// Sessions of selenium-webdriver.
import { Builder, By } from 'selenium-webdriver';

import { openSheet, withPhone } from './phone.mjs';

export const connect = (phone) => new Builder()
    .usingServer(`http://127.0.0.1:${phone.port}`)
    .withCapabilities({ browserName: '', platformName: 'iOS', 'appium:automationName': 'XCUITest' })
    .build();

/// What carries this name.
export const named = (name) => new By('accessibility id', name);

/// A test's body with a session on a phone of its own: `body(driver, phone)`.
export function onPhone(body, options = {}) {
    return () => withPhone(options, async (phone) => {
        const driver = await connect(phone);
        await body(driver, phone);
        await driver.quit();
    });
}

/// The same, with the share sheet over a call.
export function onSheet(body, options = {}) {
    return onPhone(async (driver, phone) => {
        await openSheet((name, values) => driver.executeScript(`mobile: ${name}`, values));
        await body(driver, phone);
    }, options);
}
