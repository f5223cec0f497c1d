// webdriverio: swipes, wheels and pointers moved step by step.
import assert from 'node:assert/strict';
import { test } from 'node:test';

import { onSheet } from './webdriverio.mjs';

test('swipes over what scrolls and over the screen', onSheet(async (driver) => {
    await driver.$('~Event').click();
    await driver.$('//XCUIElementTypeCell[starts-with(@label, "Repeat")]').click();
    const week = await driver.$('~Every Week');
    const before = await week.getLocation('y');
    await driver.swipe({ direction: 'up', scrollableElement: driver.$('XCUIElementTypeTable'), percent: 0.3 });
    const scrolled = await week.getLocation('y');
    assert.ok(scrolled < before, `${scrolled} is not above ${before}`);

    await driver.swipe({ from: { x: 160, y: 300 }, to: { x: 160, y: 340 } });
    assert.ok(await week.getLocation('y') > scrolled);
    await driver.swipe({ direction: 'up' });
    await driver.$('~Every 2 Weeks').waitForDisplayed();
}));

test('scrolls to what is out of sight', onSheet(async (driver) => {
    await driver.$('~Event').click();
    await driver.$('//XCUIElementTypeCell[starts-with(@label, "Repeat")]').click();
    await driver.$('~Every Year').scrollIntoView({ scrollableElement: driver.$('XCUIElementTypeTable') });
    await driver.$('~Every Year').click();
    await driver.$('~Back').click();
    await driver.$('~Repeat, Every Year').waitForDisplayed();
}));

test('moves a pointer as it is told', onSheet(async (driver) => {
    await driver.action('pointer', { parameters: { pointerType: 'touch' } })
        .move({ origin: driver.$('~Note') }).down().pause(50).up().perform();
    await driver.$('XCUIElementTypeTextView').waitForDisplayed();
    await driver.releaseActions();

    const { x, y } = await driver.$('~Cancel').getLocation();
    await driver.action('pointer', { parameters: { pointerType: 'touch' } })
        .move({ x: x + 5, y: y + 5 }).down().move({ duration: 100, origin: 'pointer', x: 3, y: 3 }).up().perform();
    await driver.$('~Cancel').waitForExist({ reverse: true });
}));

test('turns a wheel row by row', onSheet(async (driver) => {
    await driver.$('~Reminder').click();
    await driver.$('//XCUIElementTypeCell[starts-with(@label, "Remind me")]').click();
    const hour = await driver.$('~hour');
    assert.equal(await hour.getValue(), '2');
    await driver.execute('mobile: selectPickerWheelValue', { element: hour.elementId, order: 'next' });
    assert.equal(await hour.getValue(), '3');
    await driver.execute('mobile: selectPickerWheelValue', { element: hour.elementId, order: 'previous' });
    assert.equal(await hour.getValue(), '2');
    await assert.rejects(hour.setValue('25'), { name: 'invalid argument' });
}));
